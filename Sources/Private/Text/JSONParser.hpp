#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

#include "Private/Text/JSONFailure.hpp"
#include "Private/Text/JSONNumber.hpp"
#include "Private/Text/JSONString.hpp"
#include "Private/Text/JSONStringScanner.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

/// Told the parts of a JSON text in the order in which they stand: `key` before the value of a
/// member, `integer` for a number that is one of 64 bits, however it is spelt (1.0 is one), and
/// `otherNumber` for any other. What is written of a text or key is a view into what is parsed.
template <typename Type>
concept JSONEvents = requires(Type events, JSONString text, std::int64_t value, bool truth) {
    events.beginObject();
    events.endObject();
    events.beginArray();
    events.endArray();
    events.key(text);
    events.string(text);
    events.integer(value);
    events.boolean(truth);
    events.null();
    events.otherNumber();
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
        Place place = skipBlanks(0);
        if (at(place) != '{' && at(place) != '[') {
            (void)brokenAt(place);
            return false;
        }
        do {
            place = parseValue(place);
            place = place != broken ? parseBehindValue(place) : broken;
        } while (_depth > 0 && place != broken);
        if (place == broken) {
            return false;
        }
        _failure.offset = skipBlanks(place);
        return _failure.offset == _text.size();
    }

    /// Why the text is not JSON, once `parse` was false.
    [[nodiscard]] const JSONFailure& failure() const noexcept { return _failure; }

private:
    /// A position in the text. What parses something is given where that begins and returns where
    /// it ends, or that it is broken.
    using Place = std::size_t;

    static constexpr Place broken = std::string_view::npos;
    static constexpr std::size_t deepestNesting = 512;

    /// Keeps why and where the text is broken.
    Place brokenAt(Place place,
                   JSONFailure::Reason reason = JSONFailure::Reason::grammar) noexcept {
        const bool isAtEnd = place >= _text.size();
        _failure = {.reason = isAtEnd ? JSONFailure::Reason::end : reason, .offset = place};
        return broken;
    }

    static constexpr bool isDigit(char character) noexcept {
        return character >= '0' && character <= '9';
    }

    /// What stands there; NUL, which may stand nowhere, at the end.
    [[nodiscard]] char at(Place place) const noexcept {
        return place < _text.size() ? _text[place] : '\0';
    }

    [[nodiscard]] Place skipBlanks(Place place) const noexcept {
        for (;; ++place) {
            const char character = at(place);
            if (character > ' ') {
                return place; // as nearly always
            }
            if (character != ' ' && character != '\n' && character != '\r' && character != '\t') {
                return place;
            }
        }
    }

    /// A value, with its key if it is a member; of objects and arrays that are not empty the first
    /// one that is in them.
    Place parseValue(Place place) {
        for (;;) {
            place = _isInObject ? parseKey(place) : place;
            if (place == broken) {
                return broken;
            }
            const char first = at(place);
            if (first == '"') {
                return parseString(place, [&](JSONString text) { _events.string(text); });
            }
            const bool isObject = first == '{';
            if (!isObject && first != '[') {
                return parseNumberOrWord(place);
            }
            if (_depth == deepestNesting) {
                return brokenAt(place, JSONFailure::Reason::depth);
            }
            begin(isObject);
            place = skipBlanks(place + 1);
            if (at(place) == (isObject ? '}' : ']')) {
                return place;
            }
        }
    }

    /// What is between a value and the next one, which may stand further outside, or the end of
    /// all.
    Place parseBehindValue(Place place) {
        while (_depth > 0) {
            place = skipBlanks(place);
            const char character = at(place);
            if (character == ',') {
                return skipBlanks(place + 1);
            }
            if (character != (_isInObject ? '}' : ']')) {
                return brokenAt(place);
            }
            end();
            ++place;
        }
        return place;
    }

    void begin(bool isObject) {
        _wasInObject[_depth++] = std::exchange(_isInObject, isObject);
        if (isObject) {
            _events.beginObject();
        } else {
            _events.beginArray();
        }
    }

    void end() {
        if (_isInObject) {
            _events.endObject();
        } else {
            _events.endArray();
        }
        _isInObject = _wasInObject[--_depth];
    }

    /// A key and all up to its value.
    Place parseKey(Place place) {
        if (at(place) != '"') {
            return brokenAt(place);
        }
        place = parseString(place, [&](JSONString text) { _events.key(text); });
        if (place == broken) {
            return broken;
        }
        place = skipBlanks(place);
        return at(place) == ':' ? skipBlanks(place + 1) : brokenAt(place);
    }

    Place parseString(Place place, auto&& tell) {
        const Place begin = place + 1;
        Place end = _strings.next(begin);
        const bool hasEscapes = at(end) != '"';
        if (hasEscapes) {
            end = skipEscapes(end);
            if (at(end) != '"') {
                return brokenAt(end); // a control character, a false escape, or the text's end
            }
        }
        const std::string_view written(_text.data() + begin, end - begin);
        if (_strings.mayHaveNonASCIIBehind(begin) && !isUTF8(written)) {
            return brokenAt(begin, JSONFailure::Reason::notUTF8);
        }
        tell(JSONString(written, hasEscapes));
        return end + 1;
    }

    /// The rest of a string up to what is no escape.
    [[nodiscard]] Place skipEscapes(Place place) noexcept {
        while (at(place) == '\\') {
            const std::size_t length = lengthOfJSONEscape(_text.substr(place));
            if (length == 0) {
                break;
            }
            place = _strings.next(place + length);
        }
        return place;
    }

    Place parseNumberOrWord(Place place) {
        switch (at(place)) {
        case 'n':
            return parseWord(place, "null", [&] { _events.null(); });
        case 't':
            return parseWord(place, "true", [&] { _events.boolean(true); });
        case 'f':
            return parseWord(place, "false", [&] { _events.boolean(false); });
        default:
            return parseNumber(place);
        }
    }

    Place parseWord(Place place, std::string_view word, auto&& tell) {
        if (!_text.substr(place).starts_with(word)) {
            return brokenAt(place);
        }
        tell();
        return place + word.size();
    }

    Place parseNumber(Place begin) {
        constexpr std::size_t mostDigits = std::numeric_limits<std::int64_t>::digits10;

        const bool isNegative = at(begin) == '-';
        const Place digits = begin + (isNegative ? 1 : 0);
        Place place = digits;
        std::uint64_t magnitude = 0; // wraps around if there are too many digits
        for (; isDigit(at(place)); ++place) {
            magnitude = magnitude * 10 + static_cast<std::uint64_t>(at(place) - '0');
        }
        const std::size_t count = place - digits;
        if (count == 0 || (count > 1 && at(digits) == '0')) {
            return brokenAt(place);
        }
        const Place end = skipFractionAndExponent(place);
        if (end == broken) {
            return broken;
        }
        if (end == place && count <= mostDigits) {
            const auto value = static_cast<std::int64_t>(magnitude); // as of nearly all numbers
            _events.integer(isNegative ? -value : value);
        } else if (const auto integer = integralValue(_text.substr(begin, end - begin))) {
            _events.integer(*integer);
        } else {
            _events.otherNumber();
        }
        return end;
    }

    [[nodiscard]] Place skipFractionAndExponent(Place place) noexcept {
        if (at(place) == '.') {
            const Place fraction = place + 1;
            place = skipDigits(fraction);
            if (place == fraction) {
                return brokenAt(place);
            }
        }
        if (at(place) == 'e' || at(place) == 'E') {
            const bool hasSign = at(place + 1) == '+' || at(place + 1) == '-';
            const Place exponent = place + (hasSign ? 2 : 1);
            place = skipDigits(exponent);
            if (place == exponent) {
                return brokenAt(place);
            }
        }
        return place;
    }

    [[nodiscard]] Place skipDigits(Place place) const noexcept {
        while (isDigit(at(place))) {
            ++place;
        }
        return place;
    }

    std::string_view _text;
    JSONStringScanner _strings;
    Events& _events;
    std::size_t _depth = 0; // how many objects and arrays are open
    bool _isInObject = false;
    JSONFailure _failure;
    std::array<bool, deepestNesting> _wasInObject{}; // for each of them: before it began
};

} // namespace Rellinor
