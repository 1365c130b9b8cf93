#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace Rellinor {

/// Whether `bytes` are strict UTF-8: no overlong form, no surrogate, nothing above U+10FFFF. NUL
/// and noncharacters pass.
[[nodiscard]] bool isUTF8(std::string_view bytes) noexcept;

/// How many bytes a leading UTF-8 byte-order mark takes; 0 if there is none.
[[nodiscard]] std::size_t lengthOfByteOrderMark(std::string_view bytes) noexcept;

/// The text that `bytes` spell in UTF-8, in place, without one leading byte-order mark. Absent if
/// they are not strict UTF-8.
[[nodiscard]] std::optional<std::span<char>> decodedText(std::span<char> bytes) noexcept;

/// How many bytes `bytes` take once everything in them that is not UTF-8 is replaced by U+FFFD: one
/// for each longest beginning of a code point, and one for each byte that begins none.
[[nodiscard]] std::size_t sizeOfRepairedText(std::string_view bytes) noexcept;

/// Writes `bytes`, repaired in that way.
///
/// @param target  as large as `sizeOfRepairedText` says
void writeRepairedText(std::string_view bytes, std::span<char> target) noexcept;

/// How many characters a text has. A character is an extended grapheme cluster, such as a letter
/// with its accents or CR LF; a byte that is not UTF-8 counts as one.
[[nodiscard]] std::size_t numberOfCharacters(std::string_view text) noexcept;

/// How many units a UTF-8 text takes in UTF-16: two for a code point above U+FFFF, one for any
/// other.
[[nodiscard]] std::size_t numberOfUTF16Units(std::string_view text) noexcept;

/// Whether a UTF-8 text is empty or consists only of space separators (Unicode category Zs) and
/// tabs. Line breaks are not among them.
[[nodiscard]] bool isBlank(std::string_view text) noexcept;

} // namespace Rellinor
