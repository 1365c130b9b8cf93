#include "Host/JSONText.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Rellinor::Host {

namespace {

/// The code point in two bytes of UTF-8 or more that a text begins with, where it is one that is
/// escaped: another control, a line separator, or what turns the direction of writing. 0 if not.
constexpr std::uint32_t escapedCodePoint(std::string_view text) noexcept {
    const auto byte = [&](std::size_t place) {
        return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
    };
    const std::uint32_t last = byte(1) & 0x3FU;
    if (byte(0) == 0xC2 && byte(1) < 0xA0) {
        return 0x80 + last;
    }
    if (byte(0) == 0xD8 && byte(1) == 0x9C) {
        return 0x061C;
    }
    if (byte(0) != 0xE2 || (byte(1) != 0x80 && byte(1) != 0x81)) {
        return 0;
    }
    const std::uint32_t codePoint = 0x2000 + (last << 6U) + (byte(2) & 0x3FU);
    const bool isEscaped = codePoint == 0x200E || codePoint == 0x200F ||
                           (codePoint >= 0x2028 && codePoint <= 0x202E) ||
                           (codePoint >= 0x2066 && codePoint <= 0x2069);
    return isEscaped ? codePoint : 0;
}

constexpr std::size_t bytesOf(std::uint32_t codePoint) noexcept {
    if (codePoint < 0x80) {
        return 1;
    }
    return codePoint < 0x800 ? 2 : 3;
}

/// Whether a byte is escaped, or may begin a code point that is.
constexpr bool isSuspect(char character) noexcept {
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\' ||
           character == '\x7F' || character == '\xC2' || character == '\xD8' || character == '\xE2';
}

void appendEscape(std::uint32_t codePoint, std::string& text) {
    constexpr std::string_view characters = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    constexpr std::string_view digits = "0123456789abcdef";

    const std::size_t place =
        codePoint < 0x80 ? characters.find(static_cast<char>(codePoint)) : std::string_view::npos;
    text += '\\';
    if (place != std::string_view::npos) {
        text += letters[place];
        return;
    }
    text += 'u';
    for (const std::uint32_t shift : {12U, 8U, 4U, 0U}) {
        text += digits[codePoint >> shift & 0xFU];
    }
}

} // namespace

void JSONText::key(std::string_view name) {
    value(name);
    _text += ':';
    _needsComma = false;
}

void JSONText::value(std::string_view text) {
    raw("\"");
    while (!text.empty()) {
        const auto* const suspect = std::ranges::find_if(text, isSuspect);
        const auto plain = static_cast<std::size_t>(suspect - text.begin());
        _text += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        const bool isASCII = static_cast<unsigned char>(text.front()) < 0x80;
        const std::uint32_t escaped =
            isASCII ? static_cast<unsigned char>(text.front()) : escapedCodePoint(text);
        if (isASCII || escaped != 0) {
            appendEscape(escaped, _text);
            text.remove_prefix(bytesOf(escaped));
        } else {
            _text += text.front();
            text.remove_prefix(1);
        }
    }
    _text += '"';
}

void JSONText::begin(char bracket) {
    raw({&bracket, 1});
    _needsComma = false;
}

void JSONText::end(char bracket) {
    _text += bracket;
    _needsComma = true;
}

void JSONText::raw(std::string_view token) {
    if (_needsComma) {
        _text += ',';
    }
    _text += token;
    _needsComma = true;
}

} // namespace Rellinor::Host
