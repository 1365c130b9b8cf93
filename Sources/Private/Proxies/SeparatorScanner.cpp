#include "Private/Proxies/SeparatorScanner.hpp"

#include <array>
#include <cstring>
#include <span>

#include "Platform/ByteBlock.hpp"

namespace Rellinor {

namespace {

/// For each bit, the parity of the bits up to and including it.
constexpr std::uint64_t prefixParity(std::uint64_t bits) noexcept {
    for (unsigned shift = 1; shift < 64; shift *= 2) {
        bits ^= bits << shift;
    }
    return bits;
}

/// The block that a text begins with, filled up with NULs, which separate nothing, at its end.
ByteBlock firstBlock(std::string_view text) noexcept {
    if (text.size() >= ByteBlock::size) {
        return ByteBlock(std::span(text).first<ByteBlock::size>());
    }
    std::array<char, ByteBlock::size> padded{};
    std::memcpy(padded.data(), text.data(), text.size());
    return ByteBlock(padded);
}

} // namespace

void SeparatorScanner::scanNextBlock() noexcept {
    static_assert(blockSize == ByteBlock::size);

    const ByteBlock block = firstBlock(_text.substr(_nextBlock));
    const std::uint64_t quotes = block.equalTo('"');
    const std::uint64_t insideQuotes =
        quotes == 0 ? _insideQuotes : prefixParity(quotes) ^ _insideQuotes;
    _separators = block.equalTo(',', '\n') & ~insideQuotes;
    _insideQuotes = std::uint64_t{0} - (insideQuotes >> (blockSize - 1));
    _nextBlock += blockSize;
}

} // namespace Rellinor
