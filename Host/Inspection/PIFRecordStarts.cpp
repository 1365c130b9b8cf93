#include "Host/Inspection/PIFRecordStarts.hpp"

#include <utility>

namespace Rellinor::Host {

std::size_t PIFRecordStarts::next() {
    const std::size_t begin = passObject();
    while (begin >= _behind && takeLine()) {
    }
    ++_records;
    _isWhole = _isWhole && begin == _begin && _position < _behind &&
               _joined.find_first_not_of(" \t\r", _position) >= _behind - 1;
    return _line.number;
}

std::vector<std::size_t> PIFRecordStarts::takeOddLines() {
    while (takeLine()) {
    }
    return std::exchange(_oddLines, {});
}

std::size_t PIFRecordStarts::passObject() noexcept {
    std::size_t begin = _joined.size();
    std::size_t depth = 0;
    bool isText = false;
    while (_position < _joined.size()) {
        const char letter = _joined[_position++];
        if (isText) {
            _position += letter == '\\' ? 1 : 0;
            isText = letter != '"';
        } else if (letter == '"') {
            isText = true;
        } else if (letter == '{' || letter == '[') {
            begin = depth == 0 ? _position - 1 : begin;
            ++depth;
        } else if (letter == '}' || letter == ']') {
            depth -= depth > 0 ? 1 : 0;
            if (depth == 0) {
                break;
            }
        }
    }
    return begin;
}

bool PIFRecordStarts::takeLine() {
    if (_line.number > 0 && (_records != 1 || !_isWhole)) {
        _oddLines.push_back(_line.number);
    }
    _records = 0;
    _isWhole = true;
    while (_lines.next(_line)) {
        if (_line.text.starts_with('{')) {
            _begin = _behind;
            _behind = _begin + _line.text.size() + 1;
            return true;
        }
    }
    _line.number = 0;
    return false;
}

} // namespace Rellinor::Host
