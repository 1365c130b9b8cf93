#pragma once

#include <string_view>

namespace Rellinor {

/// Whether `text` parses as a URL whose host, percent escapes decoded, is exactly `host`.
///
/// The text is parsed strictly as RFC 3986 has it (a URI reference): nothing is trimmed, no
/// character outside its grammar passes, and the host keeps its case.
///
/// @param host  not empty; letters, digits and hyphens
[[nodiscard]] bool hasHost(std::string_view text, std::string_view host) noexcept;

} // namespace Rellinor
