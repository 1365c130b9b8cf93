#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// The files and stores that products write today. A number keeps its meaning for ever; new layouts
/// get new numbers.
enum class Layout : std::uint16_t { // NOLINT(performance-enum-size): it grows
    lastPassCSV = 1,
    dashlaneCSV = 2, ///< any one of the CSV files with a header that Dashlane writes
    dashlaneZip = 3,
    dashlanePositionalCSV = 4, ///< before about 2021, without a header
    keePassCSV = 5,
    keePassXML = 6,
    keePassXCCSV = 7,
    onePassword1PIF = 8,
    onePassword1PUX = 9,
    onePassword8CSV = 10,
    onePassword7MacCSV = 11,
    onePassword7WindowsCSV = 12,
    chromiumCSV = 13,
    chromiumLogins = 14, ///< the database "Login Data" of a profile
    firefoxCSV = 15,
    firefoxProfile = 16, ///< a profile folder
    appleCSV = 17,
    safariZip = 18,
    bitwardenCSV = 19,
    bitwardenJSON = 20,
    bitwardenZip = 21,
    protonPassCSV = 22,
    protonPassJSON = 23,
    protonPassZip = 24,
    nordPassCSV = 25,
    enpassJSON = 26,
    enpassCSV = 27,
    keeperJSON = 28,
    keeperCSV = 29,
    roboFormCSV = 30,
    strongboxCSV = 31,
    credentialExchangeJSON = 32,
    tirelJSON = 33,
    genericCSV = 34, ///< any CSV file whose header names a password column and others
    buttercupCSV = 35,
};

/// All layouts, in the order of their numbers.
[[nodiscard]] RELLINOR_PUBLIC std::span<const Layout> allLayouts() noexcept;

/// The short name of a layout for machines, such as "lastpass-csv"; empty for a number that is no
/// layout.
[[nodiscard]] RELLINOR_PUBLIC std::string_view identifier(Layout layout) noexcept;

/// The layout of that short name; absent if there is none.
[[nodiscard]] RELLINOR_PUBLIC std::optional<Layout>
layoutWithIdentifier(std::string_view identifier) noexcept;

/// What a layout is in a few words for people, such as "LastPass CSV export"; empty for a number
/// that is no layout.
[[nodiscard]] RELLINOR_PUBLIC std::string_view description(Layout layout) noexcept;

/// Whether `readExport` reads the layout: all but those that were left out when the library was
/// built. `detect` tells these all the same.
[[nodiscard]] RELLINOR_PUBLIC bool isRead(Layout layout) noexcept;

} // namespace Rellinor
