#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// The products whose exports or stores can be imported.
enum class ImportSource : std::uint8_t {
    chrome,      ///< the database "Login Data" of a profile
    lastPass,    ///< a CSV export
    dashlane,    ///< a CSV export
    onePassword, ///< the text file of a 1PIF export
    tirel,       ///< a JSON export
    keePass,     ///< a CSV export; the file tells whether it is one of KeePassXC
    keePassXC,   ///< the same as `keePass`
    firefox,     ///< a profile folder
};

/// All sources, in the order above.
[[nodiscard]] RELLINOR_PUBLIC std::span<const ImportSource> allSources() noexcept;

/// The short name of a source for machines, such as "lastPass"; empty for a number that is none.
[[nodiscard]] RELLINOR_PUBLIC std::string_view identifier(ImportSource source) noexcept;

} // namespace Rellinor
