#include "Host/Characters.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <utf8proc.h>

namespace Rellinor::Host {

namespace {

constexpr bool isASCII(char character) noexcept {
    return static_cast<unsigned char>(character) < 0x80U;
}

/// Where the first character is that is not ASCII, from a position on; the size if there is none.
std::size_t behindASCII(std::string_view text, std::size_t position) noexcept {
    constexpr std::uint64_t highBits = 0x8080'8080'8080'8080;

    std::uint64_t eight = 0;
    for (; text.size() - position >= sizeof eight; position += sizeof eight) {
        std::memcpy(&eight, text.data() + position, sizeof eight);
        if ((eight & highBits) != 0) {
            break;
        }
    }
    while (position < text.size() && isASCII(text[position])) {
        ++position;
    }
    return position;
}

/// Reads the first code point; returns how many bytes it takes, or what is not positive if there is
/// none.
utf8proc_ssize_t readCodePoint(std::string_view text, utf8proc_int32_t& codePoint) noexcept {
    // The library takes its bytes as unsigned characters.
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()); // NOLINT(*-cast)
    return ::utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
}

} // namespace

std::optional<std::size_t> firstBrokenByte(std::string_view bytes) noexcept {
    std::size_t position = behindASCII(bytes, 0);
    while (position < bytes.size()) {
        utf8proc_int32_t codePoint = 0;
        const utf8proc_ssize_t length = readCodePoint(bytes.substr(position), codePoint);
        if (length <= 0) {
            return position;
        }
        position = behindASCII(bytes, position + static_cast<std::size_t>(length));
    }
    return std::nullopt;
}

std::size_t numberOfCharacters(std::string_view text) noexcept {
    std::size_t count = 0;
    utf8proc_int32_t previous = 0;
    utf8proc_int32_t state = 0;
    for (bool atStart = true; !text.empty(); atStart = false) {
        utf8proc_int32_t codePoint = 0;
        const utf8proc_ssize_t length = readCodePoint(text, codePoint);
        if (atStart || ::utf8proc_grapheme_break_stateful(previous, codePoint, &state)) {
            ++count;
        }
        previous = codePoint;
        text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 1)));
    }
    return count;
}

std::size_t numberOfUTF16Units(std::string_view text) noexcept {
    std::size_t count = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool continues = (byte & 0xC0U) == 0x80U;
        const bool leadsFour = byte >= 0xF0;
        count += (continues ? 0U : 1U) + (leadsFour ? 1U : 0U);
    }
    return count;
}

} // namespace Rellinor::Host
