#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Rellinor::Host {

/// A text as it may be sent to a terminal: control characters become visible signs, and whatever is
/// not UTF-8 or could change the direction of writing becomes U+FFFD.
[[nodiscard]] std::string displayText(std::string_view text);

/// How many columns of a terminal a displayable text takes.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// Whether a text is empty or consists only of space separators and tabs.
[[nodiscard]] bool isBlank(std::string_view text);

/// The text if it is at most `width` columns wide; otherwise its beginning and an ellipsis,
/// together at most that wide.
///
/// @param width  at least 1
[[nodiscard]] std::string shortened(std::string_view text, std::size_t width);

} // namespace Rellinor::Host
