#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Private/Text/ByteBlock.hpp"

namespace Rellinor {

/// Finds the bytes of a JSON text that may not stand in a string as they are: quotes, backslashes
/// and control characters.
///
/// Looks at 64 bytes at a time, one bit for each, at each of them once, and reads no byte outside
/// the text.
class JSONStringScanner {
public:
    explicit JSONStringScanner(std::string_view text) noexcept : _text(text) {}

    /// The position of the first of them at `from` or behind it; the size of the text if there is
    /// none.
    ///
    /// @param from  at most the size of the text, and not before what was asked for last
    [[nodiscard]] std::size_t next(std::size_t from) noexcept {
        if (from >= _nextBlock) {
            scanBlock(from - from % blockSize);
        }
        const std::uint64_t rest = _found >> from % blockSize;
        if (rest != 0) {
            return from + static_cast<std::size_t>(std::countr_zero(rest));
        }
        return nextInLaterBlocks();
    }

    /// Whether there may be bytes beyond ASCII between a position and what was found last.
    [[nodiscard]] bool mayHaveNonASCIIBehind(std::size_t position) const noexcept {
        return position < _endOfNonASCII;
    }

private:
    static constexpr std::size_t blockSize = 64;

    void scanBlock(std::size_t begin) noexcept;
    void scanLastBlock(std::size_t begin) noexcept;
    void scan(const ByteBlock& block, std::size_t begin) noexcept;

    [[nodiscard]] std::size_t nextInLaterBlocks() noexcept;

    std::string_view _text;
    std::size_t _nextBlock = 0;     // where the block after the current one begins
    std::uint64_t _found = 0;       // in the current block
    std::size_t _endOfNonASCII = 0; // where the last block ends that has bytes beyond ASCII
};

} // namespace Rellinor
