#include "Private/Text/Base64.hpp"

#include <cstdint>

namespace Rellinor {

namespace {

// Written here and not taken from the library that wipes memory: that one computes each character
// so as to take the same time for every byte, which took a quarter of a whole import. What is
// encoded here is encrypted, and the letters below lie in one cache line.
alignas(64) constexpr char letters[65] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::size_t bytesOfGroup = 3;
constexpr std::size_t lettersOfGroup = 4;

/// Writes as many letters as `letterCount` says for the bytes of a group, which are the high ones
/// of 24 bits.
void encodeGroup(std::uint32_t bits, std::size_t letterCount, char* target) noexcept {
    for (std::size_t letter = 0; letter < letterCount; ++letter) {
        target[letter] = letters[bits >> (18 - 6 * letter) & 0x3FU];
    }
}

} // namespace

std::size_t sizeOfBase64(std::size_t numberOfBytes) noexcept {
    return (numberOfBytes + bytesOfGroup - 1) / bytesOfGroup * lettersOfGroup;
}

void writeBase64(std::span<const char> bytes, std::span<char> target) noexcept {
    const auto byte = [&](std::size_t index) -> std::uint32_t {
        return static_cast<unsigned char>(bytes[index]);
    };
    const std::size_t rest = bytes.size() % bytesOfGroup;
    const std::size_t whole = bytes.size() - rest;
    char* letter = target.data();
    for (std::size_t index = 0; index < whole; index += bytesOfGroup) {
        encodeGroup(byte(index) << 16U | byte(index + 1) << 8U | byte(index + 2), lettersOfGroup,
                    letter);
        letter += lettersOfGroup;
    }
    if (rest == 1) {
        encodeGroup(byte(whole) << 16U, 2, letter);
        letter[2] = letter[3] = '=';
    } else if (rest == 2) {
        encodeGroup(byte(whole) << 16U | byte(whole + 1) << 8U, 3, letter);
        letter[3] = '=';
    }
}

} // namespace Rellinor
