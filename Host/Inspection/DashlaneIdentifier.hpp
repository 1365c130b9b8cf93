#pragma once

#include <cstdint>
#include <string_view>

namespace Rellinor::Host {

/// What an import of a Dashlane export makes of an identifier in a row.
enum class DashlaneIdentifier : std::uint8_t {
    none,
    found,
    overlooked, ///< it is there, but beyond what is searched
};

/// Looks for an identifier in braces, such as {5E1F0C2A-77B3-4D19-A0C4-0D9E3B6F1A22}.
///
/// @param cells  those of a row, joined
[[nodiscard]] DashlaneIdentifier identifierIn(std::string_view cells) noexcept;

} // namespace Rellinor::Host
