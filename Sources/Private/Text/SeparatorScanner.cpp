#include "Private/Text/SeparatorScanner.hpp"

#include <span>

namespace Rellinor {

void SeparatorScanner::scanNextBlock() noexcept {
    static_assert(blockSize == ByteBlock::size);

    const std::string_view rest(_text.data() + _nextBlock, _text.size() - _nextBlock);
    if (rest.size() < blockSize) [[unlikely]] {
        scanLastBlock();
    } else {
        scan(ByteBlock(std::span(rest).first<blockSize>()));
    }
}

// Apart, so that a whole block stays in registers.
[[gnu::noinline]] void SeparatorScanner::scanLastBlock() noexcept {
    scan(ByteBlock::first(_text.substr(_nextBlock)));
}

inline void SeparatorScanner::scan(const ByteBlock& block) noexcept {
    const std::uint64_t quotes = block.equalTo('"');
    const std::uint64_t insideQuotes =
        quotes == 0 ? _insideQuotes : prefixParity(quotes) ^ _insideQuotes;
    _separators = block.equalTo(',', '\n') & ~insideQuotes;
    _insideQuotes = std::uint64_t{0} - (insideQuotes >> (blockSize - 1));
    _nextBlock += blockSize;
}

} // namespace Rellinor
