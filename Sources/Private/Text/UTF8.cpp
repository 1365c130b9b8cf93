#include "Private/Text/UTF8.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "Platform/Unicode.hpp"
#include "Private/Text/ByteBlock.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

constexpr bool isASCII(char character) noexcept {
    return static_cast<unsigned char>(character) < 0x80U;
}

/// How many of the leading bytes are ASCII, counted in long steps, in shorter ones, and one by one.
std::size_t lengthOfASCIIPrefix(std::string_view bytes) noexcept {
    constexpr std::uint64_t highBits = 0x8080808080808080U;

    std::size_t length = 0;
    while (bytes.size() - length >= ByteBlock::size &&
           ByteBlock::first(bytes.substr(length)).isASCII()) {
        length += ByteBlock::size;
    }
    for (std::uint64_t word = 0; bytes.size() - length >= sizeof word; length += sizeof word) {
        std::memcpy(&word, bytes.data() + length, sizeof word);
        if ((word & highBits) != 0) {
            break;
        }
    }
    while (length < bytes.size() && isASCII(bytes[length])) {
        ++length;
    }
    return length;
}

/// The values that the byte behind a lead byte may have.
struct SecondByte {
    unsigned char lowest = 0x80;
    unsigned char highest = 0xBF;
};

constexpr SecondByte secondByteBehind(unsigned char lead) noexcept {
    switch (lead) {
    case 0xE0:
        return {.lowest = 0xA0}; // below, the form would be overlong
    case 0xED:
        return {.highest = 0x9F}; // above are the surrogates
    case 0xF0:
        return {.lowest = 0x90};
    case 0xF4:
        return {.highest = 0x8F}; // above is nothing
    default:
        return {};
    }
}

/// How many bytes a lead byte announces, itself included; 1 if it is none, and if it announces one
/// more, without which it is alone.
constexpr std::size_t lengthAnnouncedBy(unsigned char lead) noexcept {
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 1;
}

/// How many bytes at the beginning of `bytes`, which begin no whole code point, are replaced by one
/// character.
std::size_t lengthOfBrokenPrefix(std::string_view bytes) noexcept {
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const std::size_t announced = std::min(lengthAnnouncedBy(byteAt(0)), bytes.size());
    SecondByte expected = secondByteBehind(byteAt(0));
    std::size_t length = 1;
    while (length < announced && byteAt(length) >= expected.lowest &&
           byteAt(length) <= expected.highest) {
        expected = {};
        ++length;
    }
    return length;
}

/// Calls `visit` with each piece of the repaired text.
void forEachRepairedPiece(std::string_view bytes, auto&& visit) noexcept {
    while (!bytes.empty()) {
        const CodePoint first = firstCodePoint(bytes);
        const bool whole = first.length > 0;
        const std::size_t length =
            whole ? static_cast<std::size_t>(first.length) : lengthOfBrokenPrefix(bytes);
        visit(whole ? bytes.substr(0, length) : replacementCharacter);
        bytes.remove_prefix(length);
    }
}

} // namespace

bool isUTF8(std::string_view bytes) noexcept {
    for (;;) {
        bytes.remove_prefix(lengthOfASCIIPrefix(bytes));
        if (bytes.empty()) {
            return true;
        }
        const CodePoint first = firstCodePoint(bytes);
        if (first.length <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(first.length));
    }
}

std::size_t lengthOfByteOrderMark(std::string_view bytes) noexcept {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    return bytes.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
}

std::optional<std::span<char>> decodedText(std::span<char> bytes) noexcept {
    const std::string_view view(bytes.data(), bytes.size());
    if (!isUTF8(view)) {
        return std::nullopt;
    }
    return bytes.subspan(lengthOfByteOrderMark(view));
}

std::size_t sizeOfRepairedText(std::string_view bytes) noexcept {
    std::size_t size = 0;
    forEachRepairedPiece(bytes, [&](std::string_view piece) { size += piece.size(); });
    return size;
}

void writeRepairedText(std::string_view bytes, std::span<char> target) noexcept {
    auto position = target.begin();
    forEachRepairedPiece(
        bytes, [&](std::string_view piece) { position = std::ranges::copy(piece, position).out; });
}

std::size_t numberOfCharacters(std::string_view text) noexcept {
    std::size_t count = 0;
    std::int32_t previous = 0; // a control character, behind which a new one always begins
    std::int32_t state = 0;
    while (!text.empty()) {
        CodePoint next = firstCodePoint(text);
        if (next.length <= 0) {
            next = {.value = 0xFFFD, .length = 1};
        }
        if (isGraphemeBreak(previous, next.value, state)) {
            ++count;
        }
        previous = next.value;
        text.remove_prefix(static_cast<std::size_t>(next.length));

        // Most text is ASCII, which needs no rule but the one for CR LF.
        const std::size_t length = previous < 0x80 ? lengthOfASCIIPrefix(text) : 0;
        for (const char character : text.substr(0, length)) {
            count += previous == '\r' && character == '\n' ? 0 : 1;
            previous = static_cast<unsigned char>(character);
            state = 0;
        }
        text.remove_prefix(length);
    }
    return count;
}

std::size_t numberOfUTF16Units(std::string_view text) noexcept {
    std::size_t count = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isContinuation = (byte & 0xC0U) == 0x80U;
        const bool leadsFour = byte >= 0xF0;
        count += (isContinuation ? 0U : 1U) + (leadsFour ? 1U : 0U);
    }
    return count;
}

bool isBlank(std::string_view text) noexcept {
    while (!text.empty()) {
        if (text.front() == ' ' || text.front() == '\t') {
            text.remove_prefix(1);
            continue;
        }
        const CodePoint first = firstCodePoint(text);
        if (first.length <= 0 || !isSpaceSeparator(first.value)) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(first.length));
    }
    return true;
}

} // namespace Rellinor
