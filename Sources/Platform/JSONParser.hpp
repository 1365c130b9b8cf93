#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Platform/JSONNumber.hpp"
#include "Platform/JSONString.hpp"
#include "Platform/JSONStringScanner.hpp"
#include "Platform/Text.hpp"

namespace Rellinor {

/// Told the parts of a JSON text in the order in which they stand: `key` before the value of a
/// member, `integer` for a number that is one of 64 bits, however it is spelt (1.0 is one), and
/// `otherValue` for true, false and any other number. What is written of a text or key is a view
/// into what is parsed.
template <typename Type>
concept JSONEvents = requires(Type events, JSONString text, std::int64_t value) {
    events.beginObject();
    events.endObject();
    events.beginArray();
    events.endArray();
    events.key(text);
    events.string(text);
    events.integer(value);
    events.null();
    events.otherValue();
};

/// Parses a JSON text and tells somebody its parts as it goes. Does not recurse and keeps nothing.
///
/// The grammar is RFC 8259 to the letter, in strict UTF-8; a number may be of any size. The text
/// begins with an array or an object, and 512 of these may be nested.
template <JSONEvents Events>
class JSONParser {
public:
    /// @param events  is told the parts
    JSONParser(std::string_view text, Events& events) noexcept
        : _text(text), _strings(text), _events(events) {}

    /// False if the text is not JSON, which may show after some parts were told. To be called once.
    ///
    /// @throws what `events` throws
    [[nodiscard]] bool parse() {
        skipBlanks();
        if (front() != '{' && front() != '[') {
            return false;
        }
        do {
            if (!parseValue()) {
                return false;
            }
            while (_depth > 0 && !_isBeforeValue) {
                if (!parseBehindValue()) {
                    return false;
                }
            }
        } while (_depth > 0);
        skipBlanks();
        return _position == _text.size();
    }

private:
    static constexpr std::size_t deepestNesting = 512;

    /// What stands next; NUL, which may stand nowhere, at the end.
    [[nodiscard]] char front() const noexcept {
        return _position < _text.size() ? _text[_position] : '\0';
    }

    [[nodiscard]] bool skip(char character) noexcept {
        const bool isThere = front() == character;
        _position += isThere ? 1 : 0;
        return isThere;
    }

    void skipBlanks() noexcept {
        while (front() == ' ' || front() == '\n' || front() == '\r' || front() == '\t') {
            ++_position;
        }
    }

    /// A single value, or the beginning of an object or array up to its first value or its end.
    bool parseValue() {
        _isBeforeValue = false;
        switch (front()) {
        case '{':
            return parseBeginOfObject();
        case '[':
            return parseBeginOfArray();
        case '"':
            return parseString([&](JSONString text) { _events.string(text); });
        case 'n':
            return parseWord("null", [&] { _events.null(); });
        case 't':
            return parseWord("true", [&] { _events.otherValue(); });
        case 'f':
            return parseWord("false", [&] { _events.otherValue(); });
        default:
            return parseNumber();
        }
    }

    bool parseBeginOfObject() {
        if (!open(true)) {
            return false;
        }
        _events.beginObject();
        return front() == '}' || parseKey();
    }

    bool parseBeginOfArray() {
        if (!open(false)) {
            return false;
        }
        _events.beginArray();
        _isBeforeValue = front() != ']';
        return true;
    }

    /// Enters the object or array that begins here.
    bool open(bool isObject) noexcept {
        if (_depth == deepestNesting) {
            return false;
        }
        _isObject[_depth++] = isObject;
        ++_position;
        skipBlanks();
        return true;
    }

    /// A comma and what is between it and the next value, or the end of the object or array.
    bool parseBehindValue() {
        const bool isInObject = _isObject[_depth - 1];
        skipBlanks();
        if (skip(',')) {
            skipBlanks();
            _isBeforeValue = true;
            return !isInObject || parseKey();
        }
        if (!skip(isInObject ? '}' : ']')) {
            return false;
        }
        --_depth;
        if (isInObject) {
            _events.endObject();
        } else {
            _events.endArray();
        }
        return true;
    }

    /// A key and all up to its value.
    bool parseKey() {
        if (front() != '"' || !parseString([&](JSONString text) { _events.key(text); })) {
            return false;
        }
        skipBlanks();
        if (!skip(':')) {
            return false;
        }
        skipBlanks();
        _isBeforeValue = true;
        return true;
    }

    bool parseString(auto&& tell) {
        const std::size_t begin = ++_position;
        bool hasEscapes = false;
        for (;;) {
            _position = _strings.next(_position);
            if (front() == '"') {
                break;
            }
            if (front() != '\\') {
                return false; // a control character, or the end of the text
            }
            const std::size_t length = lengthOfJSONEscape(_text.substr(_position));
            if (length == 0) {
                return false;
            }
            hasEscapes = true;
            _position += length;
        }
        const std::string_view written = _text.substr(begin, _position - begin);
        if (_strings.mayHaveNonASCIIBehind(begin) && !isUTF8(written)) {
            return false;
        }
        tell(JSONString(written, hasEscapes));
        ++_position;
        return true;
    }

    bool parseWord(std::string_view word, auto&& tell) {
        if (!_text.substr(_position).starts_with(word)) {
            return false;
        }
        _position += word.size();
        tell();
        return true;
    }

    bool parseNumber() {
        const std::size_t begin = _position;
        (void)skip('-');
        const bool hasInteger = skip('0') || skipDigits();
        const bool hasFraction = !skip('.') || skipDigits();
        if (!hasInteger || !hasFraction) {
            return false;
        }
        if (skip('e') || skip('E')) {
            (void)(skip('+') || skip('-'));
            if (!skipDigits()) {
                return false;
            }
        }
        if (const auto value = integralValue(_text.substr(begin, _position - begin))) {
            _events.integer(*value);
        } else {
            _events.otherValue();
        }
        return true;
    }

    /// Whether there is at least one.
    [[nodiscard]] bool skipDigits() noexcept {
        const std::size_t begin = _position;
        while (front() >= '0' && front() <= '9') {
            ++_position;
        }
        return _position > begin;
    }

    std::string_view _text;
    JSONStringScanner _strings;
    Events& _events;
    std::size_t _position = 0;
    bool _isBeforeValue = true; // and not behind one
    std::size_t _depth = 0;     // how many objects and arrays are open
    std::array<bool, deepestNesting> _isObject{};
};

} // namespace Rellinor
