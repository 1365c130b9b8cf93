#include "Private/Proxies/CSVCellCount.hpp"

#include <algorithm>

namespace Rellinor {

std::size_t CSVCellCount::from(std::size_t begin, std::span<const std::size_t> letters) {
    const std::size_t lastLetter = letters.empty() ? 0 : std::ranges::max(letters);
    auto known = std::ranges::lower_bound(_cells, begin);
    std::size_t count = 0;
    _newCells.clear();
    for (std::size_t cell = begin;;) {
        if (cell > lastLetter || letters.empty()) {
            while (known != _cells.end() && *known < cell) {
                ++known;
            }
            if (known != _cells.end() && *known == cell) {
                return count + static_cast<std::size_t>(_cells.end() - known);
            }
            _newCells.push_back(cell);
        }
        ++count;
        const std::size_t delimiter = delimiterBehind(cell, letters);
        if (_grammar.isEndOfRow(delimiter)) {
            if (delimiter > _end) {
                _cells.swap(_newCells);
                _end = delimiter;
            }
            return count;
        }
        cell = delimiter + 1;
    }
}

std::size_t CSVCellCount::delimiterBehind(std::size_t begin,
                                          std::span<const std::size_t> letters) const noexcept {
    if (!_grammar.isQuote(begin) || std::ranges::find(letters, begin) != letters.end()) {
        return _grammar.delimiterFrom(begin);
    }
    const std::size_t size = _grammar.text().size();
    for (std::size_t place = begin + 1;;) {
        const CSVGrammar::Quote quote = _grammar.quoteFrom(place, size);
        if (quote.place == size) {
            return size;
        }
        if (quote.closes) {
            return _grammar.delimiterFrom(quote.place + 1);
        }
        place = quote.place + 1;
    }
}

} // namespace Rellinor
