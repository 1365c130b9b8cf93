#include "Tests/Reference/JSONReference.hpp"

#include <algorithm>
#include <limits>

#include "Tests/Reference/TextReference.hpp"

namespace Rellinor::Tests {

namespace {

using Value = JSONReferenceValue;
using Kind = JSONReferenceValue::Kind;

/// The text is not JSON.
struct NotJSON {};

constexpr std::size_t deepest = 512;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string utf8(char32_t codePoint) {
    std::string bytes;
    const auto add = [&](char32_t byte) { bytes += static_cast<char>(byte); };
    if (codePoint < 0x80) {
        add(codePoint);
    } else if (codePoint < 0x800) {
        add(0xC0 + codePoint / 64);
        add(0x80 + codePoint % 64);
    } else if (codePoint < 0x10000) {
        add(0xE0 + codePoint / 4096);
        add(0x80 + codePoint / 64 % 64);
        add(0x80 + codePoint % 64);
    } else {
        add(0xF0 + codePoint / 262144);
        add(0x80 + codePoint / 4096 % 64);
        add(0x80 + codePoint / 64 % 64);
        add(0x80 + codePoint % 64);
    }
    return bytes;
}

/// One function for each rule of the grammar.
class Reader {
public:
    explicit Reader(std::string_view text) : _rest(text) {}

    Value document() {
        whiteSpace();
        if (!_rest.starts_with('{') && !_rest.starts_with('[')) {
            throw NotJSON();
        }
        Value top = value(0);
        whiteSpace();
        if (!_rest.empty()) {
            throw NotJSON();
        }
        return top;
    }

    /// A number; the text before it is gone then.
    std::string number() {
        const std::string_view begin = _rest;
        (void)takeIf('-');
        if (!takeIf('0')) {
            digits();
        }
        if (takeIf('.')) {
            digits();
        }
        if (takeIf('e') || takeIf('E')) {
            if (!takeIf('+')) {
                (void)takeIf('-');
            }
            digits();
        }
        return std::string(begin.substr(0, begin.size() - _rest.size()));
    }

    [[nodiscard]] bool isAtEnd() const { return _rest.empty(); }

private:
    void whiteSpace() {
        while (!_rest.empty() && std::string_view(" \t\n\r").contains(_rest.front())) {
            _rest.remove_prefix(1);
        }
    }

    char take() {
        if (_rest.empty()) {
            throw NotJSON();
        }
        const char character = _rest.front();
        _rest.remove_prefix(1);
        return character;
    }

    bool takeIf(std::string_view text) {
        if (!_rest.starts_with(text)) {
            return false;
        }
        _rest.remove_prefix(text.size());
        return true;
    }

    bool takeIf(char character) { return takeIf(std::string_view(&character, 1)); }

    void takeOnly(char character) {
        if (!takeIf(character)) {
            throw NotJSON();
        }
    }

    Value value(std::size_t depth) {
        if (_rest.starts_with('{')) {
            return object(depth + 1);
        }
        if (_rest.starts_with('[')) {
            return array(depth + 1);
        }
        if (_rest.starts_with('"')) {
            return {.kind = Kind::string, .text = string()};
        }
        for (const std::string_view word : {"true", "false"}) {
            if (takeIf(word)) {
                return {.kind = Kind::boolean, .text = std::string(word)};
            }
        }
        if (takeIf("null")) {
            return {.kind = Kind::null};
        }
        return {.kind = Kind::number, .text = number()};
    }

    Value object(std::size_t depth) {
        Value object = {.kind = Kind::object};
        if (depth > deepest) {
            throw NotJSON();
        }
        takeOnly('{');
        whiteSpace();
        if (takeIf('}')) {
            return object;
        }
        for (;;) {
            whiteSpace();
            std::string name = string();
            whiteSpace();
            takeOnly(':');
            whiteSpace();
            object.members.emplace_back(std::move(name), value(depth));
            whiteSpace();
            if (takeIf('}')) {
                return object;
            }
            takeOnly(',');
        }
    }

    Value array(std::size_t depth) {
        Value array = {.kind = Kind::array};
        if (depth > deepest) {
            throw NotJSON();
        }
        takeOnly('[');
        whiteSpace();
        if (takeIf(']')) {
            return array;
        }
        for (;;) {
            whiteSpace();
            array.elements.push_back(value(depth));
            whiteSpace();
            if (takeIf(']')) {
                return array;
            }
            takeOnly(',');
        }
    }

    std::string string() {
        std::string text;
        takeOnly('"');
        for (;;) {
            const char character = take();
            if (character == '"') {
                return text;
            }
            if (static_cast<unsigned char>(character) < 0x20) {
                throw NotJSON();
            }
            if (character == '\\') {
                text += escaped();
            } else {
                text += character;
            }
        }
    }

    std::string escaped() {
        switch (const char character = take()) {
        case '"':
        case '\\':
        case '/':
            return {character};
        case 'b':
            return "\b";
        case 'f':
            return "\f";
        case 'n':
            return "\n";
        case 'r':
            return "\r";
        case 't':
            return "\t";
        case 'u':
            return utf8(escapedCodePoint());
        default:
            throw NotJSON();
        }
    }

    char32_t escapedCodePoint() {
        const char32_t unit = fourHexadecimalDigits();
        if (unit >= 0xDC00 && unit <= 0xDFFF) {
            throw NotJSON();
        }
        if (unit < 0xD800 || unit > 0xDBFF) {
            return unit;
        }
        takeOnly('\\');
        takeOnly('u');
        const char32_t low = fourHexadecimalDigits();
        if (low < 0xDC00 || low > 0xDFFF) {
            throw NotJSON();
        }
        return 0x10000 + (unit - 0xD800) * 1024 + (low - 0xDC00);
    }

    char32_t fourHexadecimalDigits() {
        constexpr std::string_view lower = "0123456789abcdef";
        constexpr std::string_view upper = "0123456789ABCDEF";
        char32_t value = 0;
        for (int count = 0; count < 4; ++count) {
            const char character = take();
            const std::size_t digit = std::min(lower.find(character), upper.find(character));
            if (digit == std::string_view::npos) {
                throw NotJSON();
            }
            value = value * 16 + static_cast<char32_t>(digit);
        }
        return value;
    }

    void digits() {
        if (_rest.empty() || !isDigit(_rest.front())) {
            throw NotJSON();
        }
        while (!_rest.empty() && isDigit(_rest.front())) {
            _rest.remove_prefix(1);
        }
    }

    std::string_view _rest;
};

std::string withoutLeadingZeros(std::string digits) {
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

/// The exponent of a number, as far as it matters: no text is so long that a thousand million
/// places would not be enough.
long exponentOf(std::string_view spelling) {
    const bool isNegative = spelling.starts_with('-');
    if (isNegative || spelling.starts_with('+')) {
        spelling.remove_prefix(1);
    }
    const std::string digits = withoutLeadingZeros(std::string(spelling));
    const long size = digits.size() > 9 ? 1'000'000'000 : std::atol(digits.c_str());
    return isNegative ? -size : size;
}

} // namespace

const JSONReferenceValue* JSONReferenceValue::member(std::string_view name) const {
    const auto found = std::ranges::find(
        members, name, [](const auto& pair) -> std::string_view { return pair.first; });
    return found == members.end() ? nullptr : &found->second;
}

std::optional<std::string> JSONReferenceValue::string() const {
    return kind == Kind::string ? std::optional(text) : std::nullopt;
}

std::optional<std::int64_t> JSONReferenceValue::integer() const {
    return kind == Kind::number ? referenceInteger(text) : std::nullopt;
}

const std::vector<JSONReferenceValue>* JSONReferenceValue::objects() const {
    const bool areObjects =
        kind == Kind::array && std::ranges::all_of(elements, [](const Value& element) {
            return element.kind == Kind::object;
        });
    return areObjects ? &elements : nullptr;
}

std::optional<JSONReferenceValue> referenceJSON(std::string_view text) {
    if (!referenceCodePoints(text)) {
        return std::nullopt;
    }
    try {
        return Reader(text).document();
    } catch (const NotJSON&) {
        return std::nullopt;
    }
}

bool isReferenceNumber(std::string_view text) {
    try {
        Reader reader(text);
        (void)reader.number();
        return reader.isAtEnd();
    } catch (const NotJSON&) {
        return false;
    }
}

std::optional<std::int64_t> referenceInteger(std::string_view number) {
    const bool isNegative = number.starts_with('-');
    if (isNegative) {
        number.remove_prefix(1);
    }
    const auto e = std::min(number.find_first_of("eE"), number.size());
    long exponent = e < number.size() ? exponentOf(number.substr(e + 1)) : 0;
    const std::string_view mantissa = number.substr(0, e);
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    std::string whole(mantissa.substr(0, point));
    std::string fraction(point < mantissa.size() ? mantissa.substr(point + 1) : "");
    if (withoutLeadingZeros(whole + fraction).empty()) {
        return 0;
    }

    // So far that every digit would lie before the point and 20 zeros behind it, or all behind.
    if (exponent > std::ssize(fraction) + 20 || exponent < -std::ssize(whole)) {
        return std::nullopt;
    }
    for (; exponent > 0; --exponent) {
        whole += fraction.empty() ? '0' : fraction.front();
        fraction.erase(0, 1);
    }
    for (; exponent < 0; ++exponent) {
        fraction.insert(fraction.begin(), whole.back());
        whole.pop_back();
    }
    if (!withoutLeadingZeros(fraction).empty()) {
        return std::nullopt;
    }
    std::string digits = withoutLeadingZeros(whole);
    const std::string furthest = isNegative ? "9223372036854775808" : "9223372036854775807";
    if (digits.size() > furthest.size() ||
        (digits.size() == furthest.size() && digits > furthest)) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    for (const char digit : digits) {
        value = value * 10 + (isNegative ? '0' - digit : digit - '0');
    }
    return value;
}

} // namespace Rellinor::Tests
