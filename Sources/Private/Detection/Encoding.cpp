#include <algorithm>
#include <array>

#include "Private/Detection/Recognisers.hpp"
#include "Private/Text/UTF16.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

using namespace std::string_view_literals;

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

/// A text in UTF-16 is read like the same text in UTF-8, but for the sources.
Detection detectUTF16(Beginning beginning) {
    DecodedUTF16 text = decodedUTF16(beginning.text);
    Detection found = detectText({.text = text.view(), .isWhole = beginning.isWhole});
    found.source.reset();
    return found;
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
    if (hasUTF16Mark(beginning.text)) {
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
