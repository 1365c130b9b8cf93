#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Rellinor::Host {

/// Where the first byte is that does not belong to a character in UTF-8; absent if there is none.
[[nodiscard]] std::optional<std::size_t> firstBrokenByte(std::string_view bytes) noexcept;

/// The number of characters as a reader counts them: extended grapheme clusters.
///
/// @param text  in UTF-8
[[nodiscard]] std::size_t numberOfCharacters(std::string_view text) noexcept;

/// The number of units that a text takes in UTF-16.
///
/// @param text  in UTF-8
[[nodiscard]] std::size_t numberOfUTF16Units(std::string_view text) noexcept;

} // namespace Rellinor::Host
