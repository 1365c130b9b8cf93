#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace Rellinor {

/// Whether `bytes` are strict UTF-8: no overlong form, no surrogate, nothing above U+10FFFF. NUL
/// and noncharacters pass.
[[nodiscard]] bool isUTF8(std::string_view bytes) noexcept;

/// The text that `bytes` spell in UTF-8, in place, without one leading byte-order mark. Absent if
/// they are not strict UTF-8.
[[nodiscard]] std::optional<std::span<char>> decodedText(std::span<char> bytes) noexcept;

/// Whether a UTF-8 text is empty or consists only of space separators (Unicode category Zs) and
/// tabs. Line breaks are not among them.
[[nodiscard]] bool isBlank(std::string_view text) noexcept;

} // namespace Rellinor
