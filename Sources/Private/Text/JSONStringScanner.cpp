#include "Private/Text/JSONStringScanner.hpp"

#include "Private/Text/ByteBlock.hpp"

namespace Rellinor {

void JSONStringScanner::scanBlock(std::size_t begin) noexcept {
    static_assert(blockSize == ByteBlock::size);

    const ByteBlock block = ByteBlock::first(_text.substr(begin));
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
