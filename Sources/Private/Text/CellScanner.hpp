#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Private/Text/ByteBlock.hpp"

namespace Rellinor {

/// Finds the separators and row ends of a text that stand outside quotes, in order, for as long as
/// the quotes are sound: one opens a cell, the next closes it, and two inside it stand for one.
///
/// Taken by parity alone, a pair inside a cell closes it and opens it again. So the quotes are
/// sound if each that opens stands at the beginning of a cell or behind a quote, and each that
/// closes stands at the end of a cell or before a quote.
///
/// Works on 64 bytes at a time, one bit for each, and reads no byte outside the text.
class CellScanner {
public:
    /// What `next()` gives instead of a separator behind quotes that are not sound.
    static constexpr std::size_t unsound = std::string_view::npos;

    /// Begins a row at the beginning of the text.
    ///
    /// @param rowEnd  a line feed, and then carriage returns may stand between a quote and it; or a
    ///                carriage return
    /// @param hasEscapes  whether a backslash inside quotes is not sound either
    CellScanner(std::string_view text, char separator, char rowEnd, bool hasEscapes) noexcept
        : _text(text), _separator(separator), _rowEnd(rowEnd), _hasEscapes(hasEscapes) {}

    /// Begins a row at a place of the text.
    void beginRowAt(std::size_t place) noexcept {
        _nextBlock = place;
        _delimiters = 0;
        _pairs = 0;
        _lastPair = 0;
        _insideQuotes = 0;
        _carried = {};
        _isUnsound = false;
    }

    /// The place of the next separator or row end; the size of the text when there is none left.
    [[nodiscard]] std::size_t next() noexcept {
        while (_delimiters == 0) {
            if (_isUnsound) {
                return unsound;
            }
            if (_nextBlock >= _text.size()) {
                return _insideQuotes != 0 || _carried.behindReturn ? unsound : _text.size();
            }
            scanNextBlock();
        }
        const auto bit = static_cast<std::size_t>(std::countr_zero(_delimiters));
        _delimiters &= _delimiters - 1;
        return _nextBlock - blockSize + bit;
    }

    /// Whether two quotes that stand for one are between a place and what `next()` gave last.
    [[nodiscard]] bool hasPair(std::size_t begin, std::size_t end) const noexcept {
        const std::size_t block = _nextBlock - blockSize;
        const std::uint64_t pairs = _pairs & bitsBelow(end - block);
        const std::size_t last =
            pairs == 0 ? _lastPair
                       : block + blockSize - 1 - static_cast<std::size_t>(std::countl_zero(pairs));
        return last > begin;
    }

private:
    static constexpr std::size_t blockSize = 64;

    /// What the last byte of a block asks of the first of the next.
    struct Carried {
        bool mayOpen = true;       // the byte before was a separator, a row end or a closing quote
        bool behindQuote = false;  // it was a closing quote
        bool behindReturn = false; // it was a carriage return behind one
    };

    void scanNextBlock() noexcept;
    void scanLastBlock() noexcept;
    void scan(const ByteBlock& block, std::size_t size) noexcept;
    void scanQuotes(const ByteBlock& block, std::uint64_t quotes, std::size_t size) noexcept;

    std::string_view _text;
    char _separator;
    char _rowEnd;
    bool _hasEscapes;
    bool _isUnsound = false; // behind the delimiters of the current block
    Carried _carried;
    std::size_t _nextBlock = 0;      // where the block after the current one begins
    std::uint64_t _delimiters = 0;   // of the current block, those not yet handed out
    std::uint64_t _pairs = 0;        // of the current block, the second quotes of pairs
    std::size_t _lastPair = 0;       // the last of the blocks before; 0 if there is none
    std::uint64_t _insideQuotes = 0; // all ones if the current block ends inside quotes
};

} // namespace Rellinor
