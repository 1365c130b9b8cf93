#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include <Rellinor/Export.hpp>
#include <Rellinor/rellinorLayouts.h>

namespace Rellinor {

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): the list is one
#define RELLINOR_LAYOUT_NUMBER(number, name, nameInC, identifier, description) name = (number),

/// The files and stores that products write today, as `RELLINOR_LAYOUTS` lists them. A number
/// keeps its meaning for ever; new layouts get new numbers.
enum class Layout : std::uint16_t { // NOLINT(performance-enum-size): it grows
    RELLINOR_LAYOUTS(RELLINOR_LAYOUT_NUMBER, RELLINOR_LAYOUT_NUMBER)
};
#undef RELLINOR_LAYOUT_NUMBER

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
