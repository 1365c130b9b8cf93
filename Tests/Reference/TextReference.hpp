#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Rellinor::Tests {

/// The code points that bytes spell in strict UTF-8, told by Unicode's table of well-formed byte
/// sequences; absent if they are anything else.
[[nodiscard]] std::optional<std::u32string> referenceCodePoints(std::string_view bytes);

/// The same text with each longest beginning of a sequence that is not well-formed, and each byte
/// that begins none, replaced by U+FFFD.
[[nodiscard]] std::string referenceRepairedText(std::string_view bytes);

/// Bytes without one leading byte-order mark, if they are strict UTF-8.
[[nodiscard]] std::optional<std::string> referenceDecodedText(std::string_view bytes);

/// How many extended grapheme clusters a text has, by the rules of UAX 29 one after the other.
[[nodiscard]] std::size_t referenceNumberOfCharacters(std::u32string_view text);

/// A text in UTF-16.
[[nodiscard]] std::u16string referenceUTF16(std::u32string_view text);

/// Whether a text is made of nothing but tabs and characters of the category Zs, written out.
[[nodiscard]] bool referenceIsBlank(std::u32string_view text);

} // namespace Rellinor::Tests
