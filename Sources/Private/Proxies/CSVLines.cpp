#include "Private/Proxies/CSVLines.hpp"

namespace Rellinor {

bool CSVLines::read(CSVLine& line) {
    while (_place < _text.size()) {
        if (!readSound(line)) [[unlikely]] {
            goTo(_recovery.read(_place, line) + 1);
            return true;
        }
        // The single cell of a line without any character.
        if (line.count() > 1 || !line.cells()[0].empty() || _text[line.begin] == '"') {
            return true;
        }
    }
    return false;
}

/// Reads a line, be it empty; false if its quotes are not sound.
bool CSVLines::readSound(CSVLine& line) {
    line.clear();
    line.begin = _place;
    for (std::size_t begin = _place;;) {
        const std::size_t delimiter = _scanner.next();
        if (delimiter == CellScanner::unsound) [[unlikely]] {
            return false;
        }
        const bool isLast = delimiter == _text.size() || _text[delimiter] == _rowEnd;
        std::size_t end = delimiter;
        if (isLast && delimiter != _text.size() && _rowEnd == '\n') {
            while (end > begin && _text[end - 1] == '\r') {
                --end;
            }
        }
        if (end == begin || _text[begin] != '"') {
            line.append(_text.substr(begin, end - begin));
        } else if (const std::string_view cell = _text.substr(begin + 1, end - begin - 2);
                   _scanner.hasPair(begin, delimiter)) {
            line.appendWritten(cell);
        } else {
            line.append(cell);
        }
        begin = delimiter + 1;
        if (isLast) {
            _place = begin;
            return true;
        }
    }
}

} // namespace Rellinor
