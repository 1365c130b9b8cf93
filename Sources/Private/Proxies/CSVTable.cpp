#include "Private/Proxies/CSVTable.hpp"

#include <utility>

namespace Rellinor {

CSVTable::CSVTable(std::span<char> text, const CSVDialect& dialect, ImportMemory& /*memory*/,
                   DamageHandler onDamage)
    : _text(text), _dialect(dialect), _onDamage(std::move(onDamage)) {
    const std::string_view view(text.data(), text.size());
    if (view.starts_with("sep=")) {
        _next = std::min(view.find('\n'), view.size() - 1) + 1;
    }
    if (take()) {
        _header = std::move(_row);
    }
}

bool CSVTable::next() {
    if (!take()) {
        return false;
    }
    if (_row.size() > _header.size() && _onDamage) {
        _onDamage(CSVDamage::longRow, _position);
    }
    if (_row.size() < _header.size()) {
        if (_onDamage) {
            _onDamage(CSVDamage::shortRow, _position);
        }
        _row.resize(_header.size());
    }
    return true;
}

bool CSVTable::take() {
    _row.clear();
    while (_next < _text.size() && (_text[_next] == '\n' || _text[_next] == '\r')) {
        ++_next;
    }
    if (_next >= _text.size()) {
        return false;
    }
    _position = _next;
    for (;;) {
        std::size_t begin = _next;
        std::size_t end = begin;
        if (_next < _text.size() && _text[_next] == '"') {
            ++_next;
            while (_next < _text.size()) {
                const char character = _text[_next];
                const char behind = _next + 1 < _text.size() ? _text[_next + 1] : '\0';
                const bool escapes = _dialect.quotes == CSVQuotes::backslashed &&
                                     character == '\\' && (behind == '"' || behind == '\\');
                if (escapes || (character == '"' && behind == '"')) {
                    _text[end++] = behind;
                    _next += 2;
                } else if (character == '"') {
                    ++_next;
                    break;
                } else {
                    _text[end++] = character;
                    ++_next;
                }
            }
        } else {
            while (_next < _text.size() && _text[_next] != _dialect.separator &&
                   _text[_next] != '\n') {
                ++_next;
            }
            end = _next;
            while (end > begin && _text[end - 1] == '\r') {
                --end;
            }
        }
        _row.emplace_back(_text.data() + begin, end - begin);
        while (_next < _text.size() && _text[_next] == '\r') {
            ++_next;
        }
        if (_next >= _text.size() || _text[_next] != _dialect.separator) {
            _next = std::min(_next + 1, _text.size());
            return true;
        }
        ++_next;
    }
}

} // namespace Rellinor
