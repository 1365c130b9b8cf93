#include <algorithm>
#include <array>
#include <cstdint>

#include "Platform/Unicode.hpp"
#include "Private/Detection/Recognisers.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

/// Whether every second byte at the beginning is NUL, as in UTF-16 of plain letters.
bool isWideText(std::string_view bytes) noexcept {
    constexpr std::size_t enough = 64;
    constexpr std::size_t fewest = 2; // NULs, or else it may be chance

    const std::string_view beginning = bytes.substr(0, enough);
    std::array<std::size_t, 2> nuls = {}; // in even and in odd places
    for (std::size_t i = 0; i < beginning.size(); ++i) {
        nuls[i % 2] += beginning[i] == '\0' ? 1U : 0U;
    }
    const std::size_t half = beginning.size() / 2;
    return half >= fewest && std::ranges::max(nuls) >= half && std::ranges::min(nuls) == 0;
}

/// A text in UTF-16, without its mark, in UTF-8. What is no character becomes U+FFFD.
FilePart decodedUTF16(std::string_view bytes, bool isBigEndian) {
    constexpr std::size_t longest = 3; // bytes for two of UTF-16
    constexpr std::int32_t replacement = 0xFFFD;

    const auto unitAt = [&](std::size_t place) {
        const auto high = static_cast<unsigned char>(bytes[place + (isBigEndian ? 0 : 1)]);
        const auto low = static_cast<unsigned char>(bytes[place + (isBigEndian ? 1 : 0)]);
        return static_cast<std::int32_t>(high) * 256 + low;
    };
    const auto isHigh = [](std::int32_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
    const auto isLow = [](std::int32_t unit) { return unit >= 0xDC00 && unit < 0xE000; };

    WipedBuffer buffer(bytes.size() / 2 * longest + 1);
    char* target = buffer.bytes().data();
    std::size_t place = 0;
    while (place + 1 < bytes.size()) {
        std::int32_t character = unitAt(place);
        place += 2;
        if (isHigh(character) && place + 1 < bytes.size() && isLow(unitAt(place))) {
            character = 0x10000 + (character - 0xD800) * 0x400 + (unitAt(place) - 0xDC00);
            place += 2;
        } else if (isHigh(character) || isLow(character)) {
            character = replacement;
        }
        target = writeCodePoint(character, target);
    }
    const auto size = static_cast<std::size_t>(target - buffer.bytes().data());
    return {std::move(buffer), size};
}

Detection detectUTF16(Beginning beginning) {
    const bool isBigEndian = beginning.text.starts_with(bigEndianMark);
    const FilePart text = decodedUTF16(beginning.text.substr(bigEndianMark.size()), isBigEndian);
    Detection found = detectText({.text = text.bytes(), .isWhole = beginning.isWhole});
    if (found.obstacle == FailureReason::encrypted || found.obstacle == FailureReason::noRows) {
        return found;
    }
    return found.layout ? obstructed(found, FailureReason::utf16, saveAsUTF8)
                        : obstructed(FailureReason::utf16, "the text is in UTF-16", saveAsUTF8);
}

/// The text without a character that is cut at its end.
std::string_view withoutCutCharacter(std::string_view text) noexcept {
    constexpr std::size_t longestCharacter = 4;
    const auto isContinuation = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    std::size_t end = text.size();
    while (end > 0 && text.size() - end < longestCharacter - 1 && isContinuation(text[end - 1])) {
        --end;
    }
    const bool isCut = end > 0 && (static_cast<unsigned char>(text[end - 1]) & 0xC0U) == 0xC0U;
    return isCut ? text.substr(0, end - 1) : text;
}

bool isControl(char character) noexcept {
    return static_cast<unsigned char>(character) < ' ' && !"\t\n\v\f\r\x1B"sv.contains(character);
}

} // namespace

Detection detectEncodedText(Beginning beginning) {
    if (beginning.text.starts_with(littleEndianMark) || beginning.text.starts_with(bigEndianMark)) {
        return detectUTF16(beginning);
    }
    if (isWideText(beginning.text)) {
        return obstructed(FailureReason::utf16, "the text is in UTF-16", saveAsUTF8);
    }
    beginning.text.remove_prefix(lengthOfByteOrderMark(beginning.text));
    const bool isText =
        isUTF8(beginning.isWhole ? beginning.text : withoutCutCharacter(beginning.text));
    if (isText) {
        return detectText(beginning);
    }
    if (std::ranges::any_of(beginning.text, isControl)) {
        return unknown("it is not text");
    }
    const Detection found = detectText(beginning);
    if (found.obstacle == FailureReason::encrypted) {
        return found;
    }
    return found.layout ? obstructed(found, FailureReason::notUTF8, saveAsUTF8)
                        : obstructed(FailureReason::notUTF8, "the text is not UTF-8", saveAsUTF8);
}

} // namespace Rellinor
