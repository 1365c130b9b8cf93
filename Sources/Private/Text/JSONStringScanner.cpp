#include "Private/Text/JSONStringScanner.hpp"

#include <span>

namespace Rellinor {

void JSONStringScanner::scanBlock(std::size_t begin) noexcept {
    static_assert(blockSize == ByteBlock::size);

    const std::string_view rest(_text.data() + begin, _text.size() - begin);
    if (rest.size() < blockSize) [[unlikely]] {
        scanLastBlock(begin);
    } else {
        scan(ByteBlock(std::span(rest).first<blockSize>()), begin);
    }
}

// Apart, so that a whole block stays in registers.
[[gnu::noinline]] void JSONStringScanner::scanLastBlock(std::size_t begin) noexcept {
    scan(ByteBlock::first(_text.substr(begin)), begin);
}

inline void JSONStringScanner::scan(const ByteBlock& block, std::size_t begin) noexcept {
    _found = block.equalToOrBelow('"', '\\', ' ');
    _nextBlock = begin + blockSize;
    _endOfNonASCII = block.isASCII() ? _endOfNonASCII : _nextBlock;
}

std::size_t JSONStringScanner::nextInLaterBlocks() noexcept {
    while (_nextBlock < _text.size()) {
        scanBlock(_nextBlock);
        if (_found != 0) {
            return _nextBlock - blockSize + static_cast<std::size_t>(std::countr_zero(_found));
        }
    }
    return _text.size();
}

} // namespace Rellinor
