#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace Rellinor {

/// 64 bytes at a time, compared in parallel: a set of bytes becomes a word with one bit for each,
/// the first byte's bit lowest. This one works on any machine, eight bytes to a step.
class PortableByteBlock {
public:
    static constexpr std::size_t size = 64;

    explicit PortableByteBlock(std::span<const char, size> bytes) noexcept {
        std::memcpy(_words.data(), bytes.data(), size);
        if constexpr (std::endian::native == std::endian::big) {
            for (std::uint64_t& word : _words) {
                word = __builtin_bswap64(word);
            }
        }
    }

    /// What a text begins with, filled up with spaces if it is shorter.
    [[nodiscard]] static PortableByteBlock first(std::string_view text) noexcept {
        if (text.size() >= size) {
            return PortableByteBlock(std::span(text).first<size>());
        }
        std::array<char, size> padded{};
        padded.fill(' ');
        std::memcpy(padded.data(), text.data(), text.size());
        return PortableByteBlock(padded);
    }

    /// Which bytes are the character.
    [[nodiscard]] std::uint64_t equalTo(char character) const noexcept {
        return zeros([wanted = repeated(character)](std::uint64_t word) { return word ^ wanted; });
    }

    /// Which bytes are one of the characters.
    [[nodiscard]] std::uint64_t equalTo(char one, char other) const noexcept {
        return equalTo(one) | equalTo(other);
    }

    /// Whether all bytes are ASCII.
    [[nodiscard]] bool isASCII() const noexcept {
        return std::ranges::none_of(_words,
                                    [](std::uint64_t word) { return (word & highBits) != 0; });
    }

    /// Which bytes are one of the characters, or below a limit, which is a power of two.
    [[nodiscard]] std::uint64_t equalToOrBelow(char one, char other, char limit) const noexcept {
        const std::uint64_t highest = repeated(static_cast<char>(-limit));
        return equalTo(one, other) | zeros([&](std::uint64_t word) { return word & highest; });
    }

private:
    static constexpr std::uint64_t ones = 0x0101010101010101U;
    static constexpr std::uint64_t highBits = 0x80U * ones;

    static constexpr std::uint64_t repeated(char character) noexcept {
        return ones * static_cast<unsigned char>(character);
    }

    /// One bit for each byte of which `change` makes nothing.
    [[nodiscard]] std::uint64_t zeros(auto&& change) const noexcept {
        std::uint64_t mask = 0;
        for (std::size_t index = 0; index < _words.size(); ++index) {
            const std::uint64_t word = change(_words[index]);
            // The high bit of each byte that has no bit.
            const std::uint64_t zero = ~(((word & ~highBits) + ~highBits) | word | ~highBits);
            // The multiplication gathers the eight of them in the topmost byte.
            mask |= ((zero >> 7U) * 0x0102040810204080U >> 56U) << (8 * index);
        }
        return mask;
    }

    std::array<std::uint64_t, 8> _words{};
};

#if defined(__SSE2__)

/// The same on x86-64, sixteen bytes to a step.
class SSE2ByteBlock {
public:
    static constexpr std::size_t size = 64;

    explicit SSE2ByteBlock(std::span<const char, size> bytes) noexcept {
        std::memcpy(_parts.data(), bytes.data(), size);
    }

    /// What a text begins with, filled up with spaces if it is shorter.
    [[nodiscard]] static SSE2ByteBlock first(std::string_view text) noexcept {
        if (text.size() >= size) {
            return SSE2ByteBlock(std::span(text).first<size>());
        }
        std::array<char, size> padded{};
        padded.fill(' ');
        std::memcpy(padded.data(), text.data(), text.size());
        return SSE2ByteBlock(padded);
    }

    /// Which bytes are the character.
    [[nodiscard]] std::uint64_t equalTo(char character) const noexcept {
        const __m128i wanted = ::_mm_set1_epi8(character);
        return mask([&](__m128i bytes) { return ::_mm_cmpeq_epi8(bytes, wanted); });
    }

    /// Which bytes are one of the characters.
    [[nodiscard]] std::uint64_t equalTo(char one, char other) const noexcept {
        const __m128i first = ::_mm_set1_epi8(one);
        const __m128i second = ::_mm_set1_epi8(other);
        return mask([&](__m128i bytes) {
            return ::_mm_or_si128(::_mm_cmpeq_epi8(bytes, first), ::_mm_cmpeq_epi8(bytes, second));
        });
    }

    /// Whether all bytes are ASCII.
    [[nodiscard]] bool isASCII() const noexcept {
        const __m128i one = ::_mm_or_si128(_parts[0].bytes, _parts[1].bytes);
        const __m128i other = ::_mm_or_si128(_parts[2].bytes, _parts[3].bytes);
        return ::_mm_movemask_epi8(::_mm_or_si128(one, other)) == 0;
    }

    /// Which bytes are one of the characters, or below a limit, which is a power of two.
    [[nodiscard]] std::uint64_t equalToOrBelow(char one, char other, char limit) const noexcept {
        const __m128i first = ::_mm_set1_epi8(one);
        const __m128i second = ::_mm_set1_epi8(other);
        const __m128i highest = ::_mm_set1_epi8(static_cast<char>(-limit));
        const __m128i zero = ::_mm_setzero_si128();
        return mask([&](__m128i bytes) {
            const __m128i equal =
                ::_mm_or_si128(::_mm_cmpeq_epi8(bytes, first), ::_mm_cmpeq_epi8(bytes, second));
            const __m128i below = ::_mm_cmpeq_epi8(::_mm_and_si128(bytes, highest), zero);
            return ::_mm_or_si128(equal, below);
        });
    }

private:
    struct Part {
        __m128i bytes;
    };

    /// One bit for each byte: the highest of what `compare` makes of it.
    [[nodiscard]] std::uint64_t mask(auto&& compare) const noexcept {
        std::uint64_t mask = 0;
        for (std::size_t index = 0; index < _parts.size(); ++index) {
            const int high = ::_mm_movemask_epi8(compare(_parts[index].bytes));
            mask |= std::uint64_t{static_cast<std::uint16_t>(high)} << (16 * index);
        }
        return mask;
    }

    std::array<Part, 4> _parts{};
};

using ByteBlock = SSE2ByteBlock;

#else

using ByteBlock = PortableByteBlock;

#endif

/// For each bit, the parity of the bits up to and including it.
[[nodiscard]] constexpr std::uint64_t prefixParity(std::uint64_t bits) noexcept {
    for (unsigned shift = 1; shift < 64; shift *= 2) {
        bits ^= bits << shift;
    }
    return bits;
}

/// The bits below a place; all of them if there are no more.
[[nodiscard]] constexpr std::uint64_t bitsBelow(std::size_t place) noexcept {
    return place < 64 ? (std::uint64_t{1} << place) - 1 : ~std::uint64_t{0};
}

} // namespace Rellinor
