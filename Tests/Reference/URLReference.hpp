#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Rellinor::Tests {

/// The host of a URL text with its escapes decoded, by the grammar of a URI reference (RFC 3986)
/// rule by rule; absent if the text is empty, is none, or has no authority.
[[nodiscard]] std::optional<std::string> referenceHost(std::string_view text);

/// The text of a file URL with this path, byte by byte.
[[nodiscard]] std::string referenceFileURL(std::string_view path);

} // namespace Rellinor::Tests
