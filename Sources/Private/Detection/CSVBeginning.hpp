#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "Private/Detection/Beginning.hpp"

namespace Rellinor {

/// The cells of a row, without the quotes around them. Escaped quotes stay as they are written.
using CSVCells = std::vector<std::string_view>;

/// The first rows of a CSV text, in the dialects of all products at once: no name of a column
/// depends on which it is. Linear in the size of the text.
class CSVBeginning {
public:
    /// A row of more cells is not handed out: no product writes such a header.
    static constexpr std::size_t mostCells = 2048;

    /// @param beginning  without a byte-order mark; outlives this and the cells
    CSVBeginning(Beginning beginning, char separator) noexcept
        : _rest(beginning.text), _isWhole(beginning.isWhole), _separator(separator) {}

    /// Takes the next row that is not empty. False if there is none left that is complete and
    /// sound.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool next(CSVCells& cells);

    /// Whether rows end with carriage returns alone, as far as they were taken.
    [[nodiscard]] bool hasCarriageReturnsOnly() const noexcept { return _hasCarriageReturnsOnly; }

private:
    [[nodiscard]] bool isEndOfCell(std::size_t place) const noexcept;
    [[nodiscard]] std::size_t endOfQuoted(std::size_t begin) const noexcept;
    [[nodiscard]] std::size_t endOfUnquoted(std::size_t begin) const noexcept;
    void skipRowEnd() noexcept;

    std::string_view _rest;
    bool _isWhole;
    char _separator;
    bool _hasCarriageReturnsOnly = false;
};

} // namespace Rellinor
