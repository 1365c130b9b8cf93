#include "Host/Inspection/PIFRecordStarts.hpp"

#include <algorithm>
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
    while (_position < _joined.size()) {
        const char letter = _joined[_position++];
        if (letter == '"') {
            passText();
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

void PIFRecordStarts::passText() noexcept {
    const auto isEscaped = [&](std::size_t quote) {
        std::size_t backslash = quote;
        while (_joined[backslash - 1] == '\\') { // which ends at the text's first quote
            --backslash;
        }
        return (quote - backslash) % 2 == 1;
    };
    std::size_t end = _joined.find('"', _position);
    while (end != std::string_view::npos && isEscaped(end)) {
        end = _joined.find('"', end + 1);
    }
    _position = std::min(end, _joined.size() - 1) + 1;
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
