#include "Private/Proxies/CSVLines.hpp"

namespace Rellinor {

bool CSVLines::read(CSVLine& line) {
    std::size_t begin = 0;
    std::size_t delimiter = 0;
    do { // Lines without any character are none.
        if (_place >= _text.size()) {
            return false;
        }
        begin = _place;
        delimiter = _scanner.next();
        _place = delimiter + 1;
    } while (isEndOfRow(delimiter) && cellEnd(begin, delimiter) == begin);

    line.beginAt(begin);
    for (;; delimiter = _scanner.next()) {
        if (delimiter == CellScanner::unsound) [[unlikely]] {
            const CSVRecovery::Place place = _recovery.read(line.begin(), line);
            goTo(place.next);
            if (place.isBehindRow) {
                return true;
            }
            begin = place.next;
            continue;
        }
        const bool isLast = isEndOfRow(delimiter);
        const std::size_t end = isLast ? cellEnd(begin, delimiter) : delimiter;
        const char* const cell = _text.data() + begin;
        if (end == begin) {
            line.appendEmpty();
        } else if (*cell != '"') {
            line.append({cell, end - begin});
        } else if (_scanner.hasPair(begin, delimiter)) {
            line.appendWritten({cell + 1, end - begin - 2});
        } else {
            line.append({cell + 1, end - begin - 2});
        }
        begin = delimiter + 1;
        if (isLast) {
            _place = begin;
            return true;
        }
    }
}

} // namespace Rellinor
