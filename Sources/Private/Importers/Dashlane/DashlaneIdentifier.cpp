#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"

#include <algorithm>

#include "Private/Text/UTF8.hpp"

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

/// Whether the search for identifiers reaches to the end of the first one.
bool isInReach(std::string_view identifier, std::string_view text) noexcept {
    // Identifiers are equally long and do not overlap, so none ends before the first.
    const std::string_view upToItsEnd(text.begin(), identifier.end());
    // Quirk: the search ends after as many UTF-16 units as the text has characters.
    return numberOfUTF16Units(upToItsEnd) <= numberOfCharacters(text);
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

bool DashlaneIdentifierSearch::findsInJoined(const CSVCursor& cells, std::size_t sizeOfSource) {
    const std::string_view text = joined(cells, sizeOfSource);
    const auto identifier = firstIdentifier(text);
    return identifier && isInReach(*identifier, text);
}

std::string_view DashlaneIdentifierSearch::joined(CSVCursor cells, std::size_t sizeOfSource) {
    if (_joined.size() < sizeOfSource) {
        _joined = WipedBuffer(std::max(sizeOfSource, 2 * _joined.size()));
    }
    const auto begin = _joined.bytes().begin();
    auto end = begin;
    while (const auto cell = cells.nextCell()) {
        end = std::ranges::copy(*cell, end).out;
    }
    return {begin, end};
}

} // namespace Rellinor
