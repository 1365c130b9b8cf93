#include "Host/TextEncoding.hpp"

#include <algorithm>
#include <array>

#include "Host/Characters.hpp"

namespace Rellinor::Host {

namespace {

/// Whether every second byte at the beginning is NUL, as in UTF-16 of plain letters.
bool isWideText(std::string_view bytes) noexcept {
    constexpr std::size_t enough = 64;
    constexpr std::size_t fewest = 2; // NULs, or else it may be chance

    const std::string_view beginning = bytes.substr(0, enough);
    std::array<std::size_t, 2> nuls = {}; // in even and in odd places
    for (std::size_t i = 0; i < beginning.size(); ++i) {
        if (beginning[i] == '\0') {
            ++nuls[i % 2];
        }
    }
    const std::size_t half = beginning.size() / 2;
    return half >= fewest && std::ranges::max(nuls) >= half && std::ranges::min(nuls) == 0;
}

bool isUTF16(std::string_view bytes) noexcept {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") || isWideText(bytes);
}

} // namespace

std::string_view withoutByteOrderMark(std::string_view text) noexcept {
    return text.starts_with(byteOrderMark) ? text.substr(byteOrderMark.size()) : text;
}

std::optional<EncodingFault> encodingFault(std::string_view bytes) {
    if (isUTF16(bytes)) {
        return EncodingFault{.reason = "the text is in UTF-16", .offset = std::nullopt};
    }
    if (const auto broken = firstBrokenByte(bytes)) {
        return EncodingFault{.reason = "the text is not UTF-8", .offset = broken};
    }
    return std::nullopt;
}

bool hasCarriageReturnsOnly(std::string_view text) noexcept {
    const std::size_t first = text.find('\r');
    return first != std::string_view::npos && first + 1 < text.size() && !text.contains('\n');
}

} // namespace Rellinor::Host
