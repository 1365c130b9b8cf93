#include "Private/Text/UTF16.hpp"

#include <cstdint>

#include "Platform/Fault.hpp"
#include "Platform/Unicode.hpp"

namespace Rellinor {

namespace {

constexpr std::size_t sizeOfUnit = 2;

bool isHighSurrogate(std::int32_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(std::int32_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

DecodedUTF16 decodedUTF16(std::string_view bytes) {
    constexpr std::size_t longest = 3; // bytes for one unit
    constexpr std::int32_t replacement = 0xFFFD;

    require(hasUTF16Mark(bytes));
    const std::size_t placeOfHigh = bytes.front() == '\xFE' ? 0 : 1;
    const auto unitAt = [&](std::size_t place) {
        const auto high = static_cast<unsigned char>(bytes[place + placeOfHigh]);
        const auto low = static_cast<unsigned char>(bytes[place + 1 - placeOfHigh]);
        return static_cast<std::int32_t>(high) * 256 + low;
    };

    DecodedUTF16 text{.buffer = WipedBuffer(bytes.size() / sizeOfUnit * longest + longest)};
    char* target = text.buffer.bytes().data();
    std::size_t place = sizeOfUnit;
    while (place < bytes.size()) {
        const bool isWhole = place + sizeOfUnit <= bytes.size();
        std::int32_t character = isWhole ? unitAt(place) : replacement;
        const bool hasNext = place + 2 * sizeOfUnit <= bytes.size();
        place += sizeOfUnit;
        if (isHighSurrogate(character) && hasNext && isLowSurrogate(unitAt(place))) {
            character = 0x10000 + (character - 0xD800) * 0x400 + (unitAt(place) - 0xDC00);
            place += sizeOfUnit;
        } else if (!isWhole || isHighSurrogate(character) || isLowSurrogate(character)) {
            character = replacement;
            ++text.replaced;
        }
        target = writeCodePoint(character, target);
    }
    text.size = static_cast<std::size_t>(target - text.buffer.bytes().data());
    return text;
}

} // namespace Rellinor
