#pragma once

#include <optional>
#include <string_view>

namespace Rellinor {

/// The first identifier in braces, such as "{01234567-89AB-CDEF-0123-456789ABCDEF}", its letters in
/// either case, as a part of `text`; absent if there is none.
[[nodiscard]] std::optional<std::string_view> firstIdentifier(std::string_view text) noexcept;

} // namespace Rellinor
