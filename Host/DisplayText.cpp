#include "Host/DisplayText.hpp"

#include <algorithm>

#include <utf8proc.h>

namespace Rellinor::Host {

namespace {

constexpr utf8proc_int32_t replacementCharacter = 0xFFFD;

/// Takes the first code point off a text; U+FFFD for a byte that begins none.
utf8proc_int32_t takeCodePoint(std::string_view& text) {
    utf8proc_int32_t codePoint = 0;
    // The library takes its bytes as unsigned characters.
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()); // NOLINT(*-cast)
    const utf8proc_ssize_t length =
        ::utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 1)));
    return length > 0 ? codePoint : replacementCharacter;
}

utf8proc_int32_t displayable(utf8proc_int32_t codePoint) {
    constexpr utf8proc_int32_t controlPictures = 0x2400;
    constexpr utf8proc_int32_t deleteCharacter = 0x7F;
    constexpr utf8proc_int32_t zeroWidthJoiner = 0x200D; // holds emoji together

    if (codePoint < ' ') {
        return controlPictures + codePoint;
    }
    if (codePoint == deleteCharacter) {
        return controlPictures + ' ' + 1;
    }
    switch (::utf8proc_category(codePoint)) {
    case UTF8PROC_CATEGORY_CF:
        return codePoint == zeroWidthJoiner ? codePoint : replacementCharacter;
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
        return replacementCharacter;
    default:
        return codePoint;
    }
}

void append(std::string& text, utf8proc_int32_t codePoint) {
    utf8proc_uint8_t bytes[4]; // NOLINT(*-avoid-c-arrays): what the library fills
    const utf8proc_ssize_t length = ::utf8proc_encode_char(codePoint, bytes);
    text.append(bytes, bytes + length);
}

std::size_t widthOf(utf8proc_int32_t codePoint) {
    return static_cast<std::size_t>(std::max(::utf8proc_charwidth(codePoint), 0));
}

} // namespace

std::string displayText(std::string_view text) {
    std::string displayed;
    displayed.reserve(text.size());
    while (!text.empty()) {
        append(displayed, displayable(takeCodePoint(text)));
    }
    return displayed;
}

std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        width += widthOf(takeCodePoint(text));
    }
    return width;
}

bool isBlank(std::string_view text) {
    while (!text.empty()) {
        if (text.front() > ' ' && text.front() <= '~') {
            return false;
        }
        const utf8proc_int32_t codePoint = takeCodePoint(text);
        if (codePoint != '\t' && ::utf8proc_category(codePoint) != UTF8PROC_CATEGORY_ZS) {
            return false;
        }
    }
    return true;
}

std::string shortened(std::string_view text, std::size_t width) {
    if (displayWidth(text) <= width) {
        return std::string(text);
    }
    std::string beginning;
    std::size_t columns = 1; // of the ellipsis
    for (;;) {
        const utf8proc_int32_t codePoint = takeCodePoint(text);
        columns += widthOf(codePoint);
        if (columns > width) {
            return beginning + "…";
        }
        append(beginning, codePoint);
    }
}

} // namespace Rellinor::Host
