#include "Host/JSONText.hpp"

#include <algorithm>
#include <cstddef>

namespace Rellinor::Host {

namespace {

constexpr bool isEscaped(char character) noexcept {
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\';
}

void appendEscape(char character, std::string& text) {
    constexpr std::string_view characters = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    constexpr std::string_view digits = "0123456789abcdef";

    if (const std::size_t place = characters.find(character); place != std::string_view::npos) {
        text += '\\';
        text += letters[place];
        return;
    }
    const auto byte = static_cast<unsigned char>(character);
    text += "\\u00";
    text += digits[byte / digits.size()];
    text += digits[byte % digits.size()];
}

} // namespace

void JSONText::key(std::string_view name) {
    value(name);
    _text += ':';
    _needsComma = false;
}

void JSONText::value(std::string_view text) {
    raw("\"");
    while (true) {
        const auto* const escaped = std::ranges::find_if(text, isEscaped);
        const auto plain = static_cast<std::size_t>(escaped - text.begin());
        _text += text.substr(0, plain);
        if (plain == text.size()) {
            break;
        }
        appendEscape(text[plain], _text);
        text.remove_prefix(plain + 1);
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
