#include "Private/Importers/Dashlane/DashlaneIdentifierSearch.hpp"

#include <algorithm>
#include <cstddef>

#include "Private/Text/UTF8.hpp"

namespace Rellinor {

bool DashlaneIdentifierSearch::isInReach(std::string_view identifier,
                                         std::string_view text) noexcept {
    // Identifiers are equally long and do not overlap, so none ends before the first.
    const std::string_view upToItsEnd(text.begin(), identifier.end());
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
