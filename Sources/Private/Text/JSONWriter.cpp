#include "Private/Text/JSONWriter.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

#include "Platform/Unicode.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

/// Controls and line separators.
constexpr bool isControl(std::int32_t codePoint) noexcept {
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == 0x2028 ||
           codePoint == 0x2029;
}

/// The controls of Unicode's bidirectional algorithm.
constexpr bool turnsWriting(std::int32_t codePoint) noexcept {
    return codePoint == 0x061C || codePoint == 0x200E || codePoint == 0x200F ||
           (codePoint >= 0x202A && codePoint <= 0x202E) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069);
}

constexpr bool isEscaped(std::int32_t codePoint) noexcept {
    return codePoint == '"' || codePoint == '\\' || isControl(codePoint) || turnsWriting(codePoint);
}

/// How many bytes at the beginning of a UTF-8 text stand in JSON as they are.
std::size_t lengthOfPlainPrefix(std::string_view text) noexcept {
    std::size_t length = 0;
    while (length < text.size()) {
        const CodePoint next = firstCodePoint(text.substr(length));
        if (isEscaped(next.value)) {
            break;
        }
        length += static_cast<std::size_t>(next.length);
    }
    return length;
}

} // namespace

void JSONWriter::key(std::string_view name) {
    append(_separator);
    appendString(name);
    append(":");
    _separator = "";
}

void JSONWriter::string(std::string_view text) {
    append(_separator);
    appendString(text);
    _separator = ",";
}

void JSONWriter::integer(std::int64_t value) {
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> digits{}; // and a sign
    char* const end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    append(_separator);
    append({digits.begin(), end});
    _separator = ",";
}

void JSONWriter::begin(std::string_view bracket) {
    append(_separator);
    append(bracket);
    _separator = "";
}

void JSONWriter::end(std::string_view bracket) {
    append(bracket);
    _separator = ",";
}

void JSONWriter::append(std::string_view piece) {
    constexpr std::size_t smallestBuffer = 4096;

    if (piece.size() > _buffer.size() - _size) {
        WipedBuffer larger(std::max({smallestBuffer, _buffer.size() * 2, _size + piece.size()}));
        std::ranges::copy(written(), larger.bytes().begin());
        std::swap(_buffer, larger);
    }
    std::ranges::copy(piece, _buffer.bytes().subspan(_size).begin());
    _size += piece.size();
}

void JSONWriter::appendString(std::string_view text) {
    append("\"");
    if (isUTF8(text)) {
        appendEscaped(text);
    } else {
        WipedBuffer repaired(sizeOfRepairedText(text));
        writeRepairedText(text, repaired.bytes());
        appendEscaped({repaired.bytes().data(), repaired.size()});
    }
    append("\"");
}

void JSONWriter::appendEscaped(std::string_view text) {
    while (!text.empty()) {
        const std::size_t plain = lengthOfPlainPrefix(text);
        append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (!text.empty()) {
            const CodePoint next = firstCodePoint(text);
            appendEscape(next.value);
            text.remove_prefix(static_cast<std::size_t>(next.length));
        }
    }
}

void JSONWriter::appendEscape(std::int32_t codePoint) {
    constexpr std::string_view named = "\"\\\b\f\n\r\t";
    constexpr std::string_view names = "\"\\bfnrt";
    constexpr std::string_view digits = "0123456789abcdef";

    const auto unit = static_cast<std::uint32_t>(codePoint); // none that is escaped needs two
    const auto name = unit < 0x80 ? named.find(static_cast<char>(unit)) : std::string_view::npos;
    append("\\");
    if (name != std::string_view::npos) {
        append(names.substr(name, 1));
        return;
    }
    append("u");
    for (const std::uint32_t shift : {12U, 8U, 4U, 0U}) {
        append(digits.substr(unit >> shift & 0xFU, 1));
    }
}

} // namespace Rellinor
