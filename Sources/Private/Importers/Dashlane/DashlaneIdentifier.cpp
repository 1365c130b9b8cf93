#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"

#include <algorithm>

namespace Rellinor {

namespace {

constexpr std::string_view shape = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}"; // x: a digit

constexpr bool isHexadecimalDigit(char character) noexcept {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'F') ||
           (character >= 'a' && character <= 'f');
}

constexpr bool isIdentifier(std::string_view text) noexcept {
    return std::ranges::equal(text, shape, [](char character, char expected) {
        return expected == 'x' ? isHexadecimalDigit(character) : character == expected;
    });
}

} // namespace

std::optional<std::string_view> firstIdentifier(std::string_view text) noexcept {
    for (auto begin = text.find('{'); begin < text.size(); begin = text.find('{', begin + 1)) {
        const std::string_view candidate = text.substr(begin, shape.size());
        if (isIdentifier(candidate)) {
            return candidate;
        }
    }
    return std::nullopt;
}

} // namespace Rellinor
