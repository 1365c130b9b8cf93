#include "Private/Text/CellScanner.hpp"

#include <span>

namespace Rellinor {

void CellScanner::scanNextBlock() noexcept {
    static_assert(blockSize == ByteBlock::size);

    if (_pairs != 0) {
        _lastPair = _nextBlock - 1 - static_cast<std::size_t>(std::countl_zero(_pairs));
        _pairs = 0;
    }
    const std::string_view rest(_text.data() + _nextBlock, _text.size() - _nextBlock);
    if (rest.size() < blockSize) [[unlikely]] {
        scanLastBlock();
    } else {
        scan(ByteBlock(std::span(rest).first<blockSize>()), blockSize);
    }
}

// Apart, so that a whole block stays in registers.
[[gnu::noinline]] void CellScanner::scanLastBlock() noexcept {
    const std::string_view rest = _text.substr(_nextBlock);
    scan(ByteBlock::first(rest), rest.size());
}

inline void CellScanner::scan(const ByteBlock& block, std::size_t size) noexcept {
    const std::uint64_t quotes = block.equalTo('"');
    const bool asksForMore = _carried.behindQuote || _carried.behindReturn;
    const bool mayEscape = _hasEscapes && _insideQuotes != 0;
    if (quotes != 0 || asksForMore || mayEscape) {
        scanQuotes(block, quotes, size);
    } else {
        _delimiters = block.equalTo(_separator, _rowEnd) & ~_insideQuotes & bitsBelow(size);
        _carried.mayOpen = (_delimiters >> (blockSize - 1)) != 0;
    }
    _nextBlock += blockSize;
}

inline void CellScanner::scanQuotes(const ByteBlock& block, std::uint64_t quotes,
                                    std::size_t size) noexcept {
    constexpr auto last = blockSize - 1;

    const std::uint64_t inside = prefixParity(quotes) ^ _insideQuotes;
    const std::uint64_t opening = quotes & inside;
    const std::uint64_t closing = quotes & ~inside;
    const std::uint64_t ends = block.equalTo(_separator, _rowEnd);
    const std::uint64_t delimiters = ends & ~inside & bitsBelow(size);

    const std::uint64_t mayOpen = ((delimiters | closing) << 1U) | (_carried.mayOpen ? 1U : 0U);
    const std::uint64_t behindQuote = (closing << 1U) | (_carried.behindQuote ? 1U : 0U);
    std::uint64_t wrong = (opening & ~mayOpen) | (behindQuote & ~ends & ~quotes & bitsBelow(size));

    std::uint64_t behindReturn = _carried.behindReturn ? 1U : 0U;
    _carried.behindReturn = false;
    if (_rowEnd == '\n' && (wrong | behindReturn) != 0) {
        // Carriage returns between a quote and a line feed; more than one are left to others.
        const std::uint64_t returns = behindQuote & block.equalTo('\r') & bitsBelow(size);
        behindReturn |= returns << 1U;
        wrong = (wrong & ~returns) | (behindReturn & ~block.equalTo('\n'));
        _carried.behindReturn = (returns >> last) != 0;
    }
    if (_hasEscapes) {
        wrong |= block.equalTo('\\') & inside;
    }

    _delimiters = delimiters;
    if (wrong != 0) [[unlikely]] {
        _isUnsound = true;
        _delimiters &= bitsBelow(static_cast<std::size_t>(std::countr_zero(wrong)));
    }
    _pairs = opening & behindQuote;
    _carried.mayOpen = ((delimiters | closing) >> last) != 0;
    _carried.behindQuote = (closing >> last) != 0;
    _insideQuotes = std::uint64_t{0} - (inside >> last);
}

} // namespace Rellinor
