#include "Private/Text/JSONString.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "Platform/Unicode.hpp"

namespace Rellinor {

namespace {

struct Escape {
    char32_t character = 0;
    std::size_t length = 0; ///< 0 if it is none
};

/// The unit of UTF-16 in a text that begins with it, as "\u00e9" does.
std::optional<char32_t> firstUnit(std::string_view text) noexcept {
    constexpr std::size_t length = 6;
    constexpr int hexadecimal = 16;

    if (text.size() < length || !text.starts_with("\\u")) {
        return std::nullopt;
    }
    std::uint16_t unit = 0;
    const char* const end = text.data() + length;
    const auto result = std::from_chars(text.data() + 2, end, unit, hexadecimal);
    return result.ptr == end ? std::optional<char32_t>(unit) : std::nullopt;
}

constexpr bool isSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

constexpr bool isHighSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The character that a text begins with, if it is spelt in UTF-16.
Escape firstUnits(std::string_view text) noexcept {
    constexpr std::size_t lengthOfUnit = 6;

    const auto unit = firstUnit(text);
    if (!unit) {
        return {};
    }
    if (!isSurrogate(*unit)) {
        return {.character = *unit, .length = lengthOfUnit};
    }
    const auto next = firstUnit(text.substr(lengthOfUnit));
    if (!isHighSurrogate(*unit) || !next || !isLowSurrogate(*next)) {
        return {}; // a surrogate alone is no character
    }
    return {.character = 0x10000 + ((*unit - 0xD800) << 10U) + (*next - 0xDC00),
            .length = 2 * lengthOfUnit};
}

/// The escape that a text begins with.
Escape firstEscape(std::string_view text) noexcept {
    constexpr std::size_t length = 2;

    switch (text.size() < length ? '\0' : text[1]) {
    case '"':
    case '\\':
    case '/':
        return {.character = static_cast<unsigned char>(text[1]), .length = length};
    case 'b':
        return {.character = '\b', .length = length};
    case 'f':
        return {.character = '\f', .length = length};
    case 'n':
        return {.character = '\n', .length = length};
    case 'r':
        return {.character = '\r', .length = length};
    case 't':
        return {.character = '\t', .length = length};
    case 'u':
        return firstUnits(text);
    default:
        return {};
    }
}

/// Writes a character in UTF-8; returns where it ends.
char* write(char32_t character, char* target) noexcept {
    if (character < 0x80) {
        *target = static_cast<char>(character);
        return target + 1;
    }
    return writeCodePoint(static_cast<std::int32_t>(character), target);
}

} // namespace

std::string_view JSONString::decoded(std::span<char> target) const noexcept {
    char* end = target.data();
    std::string_view rest = _written;
    while (!rest.empty()) {
        const std::size_t run = std::min(rest.find('\\'), rest.size());
        end = std::ranges::copy(rest.substr(0, run), end).out;
        rest.remove_prefix(run);
        if (!rest.empty()) {
            const Escape escape = firstEscape(rest);
            end = write(escape.character, end);
            rest.remove_prefix(escape.length);
        }
    }
    return {target.data(), end};
}

std::size_t lengthOfJSONEscape(std::string_view text) noexcept {
    return firstEscape(text).length;
}

} // namespace Rellinor
