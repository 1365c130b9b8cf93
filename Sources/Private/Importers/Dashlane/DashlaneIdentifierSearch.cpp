#include "Private/Importers/Dashlane/DashlaneIdentifierSearch.hpp"

#include <algorithm>
#include <cstddef>

#include "Platform/Text.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view identifierPattern =
    R"(\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\})";
constexpr std::size_t lengthOfIdentifier = 38;

/// Rules out nearly every text without matching it: what is left of it from the first pair of
/// braces that stand as far apart as those of an identifier.
std::string_view fromFirstCandidate(std::string_view text) noexcept {
    for (auto begin = text.find('{'); begin < text.size(); begin = text.find('{', begin + 1)) {
        const std::string_view candidate = text.substr(begin, lengthOfIdentifier);
        if (candidate.size() == lengthOfIdentifier && candidate.ends_with('}')) {
            return text.substr(begin);
        }
    }
    return {};
}

} // namespace

bool DashlaneIdentifierSearch::findsIn(std::string_view text) {
    const std::string_view candidates = fromFirstCandidate(text);
    if (candidates.empty()) {
        return false;
    }
    if (!_pattern) {
        _pattern.emplace(identifierPattern);
    }
    const auto match = _pattern->firstMatch(candidates);
    if (!match) {
        return false;
    }
    // Matches are equally long and do not overlap, so none ends before the first.
    const std::string_view upToItsEnd(text.begin(), match->end());
    // Quirk: the search ends after as many UTF-16 units as the text has characters.
    return numberOfUTF16Units(upToItsEnd) <= numberOfCharacters(text);
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
