#include <algorithm>
#include <array>

#include "Host/Characters.hpp"
#include "Host/Detection/Recognisers.hpp"

namespace Rellinor::Host {

namespace {

using namespace std::string_view_literals;

/// Whether every second byte at the beginning is NUL, as in UTF-16 of plain letters.
bool isWideText(std::string_view beginning) noexcept {
    constexpr std::size_t enough = 64;

    const std::string_view bytes = beginning.substr(0, enough);
    std::array<std::size_t, 2> nuls = {}; // in even and in odd places
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\0') {
            ++nuls[i % 2];
        }
    }
    const std::size_t half = bytes.size() / 2;
    return half >= 4 && std::ranges::max(nuls) >= half && std::ranges::min(nuls) == 0;
}

bool isUTF8(std::string_view text, bool isCut) {
    constexpr std::size_t longestCharacter = 4;

    const auto broken = firstBrokenByte(text);
    return !broken || (isCut && text.size() - *broken < longestCharacter);
}

bool isControl(char character) noexcept {
    return static_cast<unsigned char>(character) < ' ' && !"\t\n\v\f\r\x1B"sv.contains(character);
}

} // namespace

std::optional<Detection> detectEncoding(std::string_view beginning) {
    if (beginning.starts_with("\xFF\xFE") || beginning.starts_with("\xFE\xFF") ||
        isWideText(beginning)) {
        return unknown("its text is in UTF-16", "save it in UTF-8");
    }
    if (isUTF8(beginning, beginning.size() >= sizeOfBeginning)) {
        return std::nullopt;
    }
    return std::ranges::any_of(beginning, isControl)
               ? unknown("it is not text")
               : unknown("its text is not in UTF-8", "save it in UTF-8");
}

} // namespace Rellinor::Host
