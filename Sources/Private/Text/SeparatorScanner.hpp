#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Private/Text/ByteBlock.hpp"

namespace Rellinor {

/// Finds the commas and line feeds of a text that stand outside quotes, in order.
///
/// A double quote opens or closes a quoted section, whatever stands beside it. Carrying that parity
/// along the text is the same as counting the quotes of the cell or line so far, since each begins
/// outside quotes; counting would take quadratic time.
///
/// Works on 64 bytes at a time, one bit for each, and reads no byte outside the text.
class SeparatorScanner {
public:
    explicit SeparatorScanner(std::string_view text) noexcept : _text(text) {}

    /// The position of the next separator; the size of the text when there is none left.
    [[nodiscard]] std::size_t next() noexcept {
        while (_separators == 0) {
            if (_nextBlock >= _text.size()) {
                return _text.size();
            }
            scanNextBlock();
        }
        const auto bit = static_cast<std::size_t>(std::countr_zero(_separators));
        _separators &= _separators - 1;
        return _nextBlock - blockSize + bit;
    }

private:
    static constexpr std::size_t blockSize = 64;

    void scanNextBlock() noexcept;
    void scanLastBlock() noexcept;
    void scan(const ByteBlock& block) noexcept;

    std::string_view _text;
    std::size_t _nextBlock = 0;      // where the block after the current one begins
    std::uint64_t _separators = 0;   // of the current block, those not yet handed out
    std::uint64_t _insideQuotes = 0; // all ones if the current block ends inside quotes
};

} // namespace Rellinor
