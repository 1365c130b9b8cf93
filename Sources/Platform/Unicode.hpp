#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <utf8proc.h>

// What utf8proc knows of code points. In the header, since the readers ask it for every character.

namespace Rellinor {

/// A code point and the number of bytes that it takes in UTF-8.
struct CodePoint {
    std::int32_t value = 0;
    std::ptrdiff_t length = 0; ///< not positive if the bytes are not UTF-8
};

/// The code point that a text begins with.
[[nodiscard]] inline CodePoint firstCodePoint(std::string_view text) noexcept {
    CodePoint first;
    // utf8proc takes its bytes as unsigned characters.
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()); // NOLINT(*-cast)
    first.length =
        ::utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &first.value);
    return first;
}

/// Writes a code point in UTF-8; returns where it ends.
///
/// @param target  has room for four bytes
[[nodiscard]] inline char* writeCodePoint(std::int32_t codePoint, char* target) noexcept {
    auto* bytes = reinterpret_cast<utf8proc_uint8_t*>(target); // NOLINT(*-cast)
    return target + ::utf8proc_encode_char(codePoint, bytes);
}

/// Whether a grapheme cluster ends between two code points.
///
/// @param state  0 at first; what is kept between the calls for one text
[[nodiscard]] inline bool isGraphemeBreak(std::int32_t previous, std::int32_t next,
                                          std::int32_t& state) noexcept {
    return ::utf8proc_grapheme_break_stateful(previous, next, &state);
}

/// Whether a code point is a space separator (Unicode category Zs).
[[nodiscard]] inline bool isSpaceSeparator(std::int32_t codePoint) noexcept {
    return ::utf8proc_category(codePoint) == UTF8PROC_CATEGORY_ZS;
}

} // namespace Rellinor
