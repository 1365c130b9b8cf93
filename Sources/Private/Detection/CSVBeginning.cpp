#include "Private/Detection/CSVBeginning.hpp"

#include <algorithm>

namespace Rellinor {

namespace {

constexpr bool isLineEnd(char character) noexcept {
    return character == '\n' || character == '\r';
}

} // namespace

bool CSVBeginning::next(CSVCells& cells) {
    cells.clear();
    while (!_rest.empty() && isLineEnd(_rest.front())) {
        skipRowEnd();
    }
    if (_rest.empty()) {
        return false;
    }
    std::size_t begin = 0;
    for (;;) {
        const bool isQuoted = begin < _rest.size() && _rest[begin] == '"';
        const std::size_t first = begin + (isQuoted ? 1 : 0);
        const std::size_t end = isQuoted ? endOfQuoted(first) : endOfUnquoted(first);
        const std::size_t behind = end + (isQuoted ? 1 : 0);
        const bool isCut = behind > _rest.size() || (behind == _rest.size() && !_isWhole);
        if (isCut || !isEndOfCell(behind) || cells.size() == mostCells) {
            return false;
        }
        cells.push_back(_rest.substr(first, end - first));
        if (behind == _rest.size() || _rest[behind] != _separator) {
            _rest.remove_prefix(behind);
            skipRowEnd();
            return true;
        }
        begin = behind + 1;
    }
}

bool CSVBeginning::isEndOfCell(std::size_t place) const noexcept {
    return place >= _rest.size() || _rest[place] == _separator || isLineEnd(_rest[place]);
}

/// Where the quote stands that closes a cell; the size of the text if none does.
std::size_t CSVBeginning::endOfQuoted(std::size_t begin) const noexcept {
    std::size_t place = _rest.find('"', begin);
    while (place < _rest.size()) {
        const bool isDoubled = place + 1 < _rest.size() && _rest[place + 1] == '"';
        const bool isEscaped = place > begin && _rest[place - 1] == '\\' && !isEndOfCell(place + 1);
        if (!isDoubled && !isEscaped) {
            break;
        }
        place = _rest.find('"', place + (isDoubled ? 2 : 1));
    }
    return std::min(place, _rest.size());
}

std::size_t CSVBeginning::endOfUnquoted(std::size_t begin) const noexcept {
    while (!isEndOfCell(begin)) {
        ++begin;
    }
    return begin;
}

void CSVBeginning::skipRowEnd() noexcept {
    const std::size_t behind = std::min(_rest.find_first_not_of('\r'), _rest.size());
    const bool hasLineFeed = behind < _rest.size() && _rest[behind] == '\n';
    if (hasLineFeed) {
        _rest.remove_prefix(behind + 1);
    } else if (behind > 0) {
        _rest.remove_prefix(behind);
        _hasCarriageReturnsOnly = true;
    }
}

} // namespace Rellinor
