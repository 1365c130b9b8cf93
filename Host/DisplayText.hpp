#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Rellinor::Host {

/// A text as it may be sent to a terminal: control characters become visible signs, and whatever is
/// not UTF-8 or could change the direction of writing becomes U+FFFD.
[[nodiscard]] std::string displayText(std::string_view text);

/// A path in a message, which an empty one must not look missing from.
[[nodiscard]] std::string displayPath(std::string_view path);

/// How many columns of a terminal a displayable text takes: of a grapheme cluster, such as an emoji
/// with the color of its skin, those of one character.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// How long a text may be for each of its columns, however many marks its letters bear.
inline constexpr std::size_t bytesPerColumn = 64;

/// What `displayText` gives if that is at most `width` columns wide and not too long for that;
/// otherwise its beginning up to the end of a grapheme cluster, and an ellipsis, together at most
/// that wide. Of a longer text only the beginning is looked at.
///
/// @param width  at least 1
[[nodiscard]] std::string shortened(std::string_view text, std::size_t width);

} // namespace Rellinor::Host
