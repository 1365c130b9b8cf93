#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "Private/Proxies/CSVGrammar.hpp"

namespace Rellinor {

/// How many cells follow in a line of a CSV text if every stray quote inside quotes is a letter.
///
/// Keeps where the cells of such a line begin if it is the one that goes furthest: of two lines
/// that both run over a line end inside quotes the rest is the same. So asking in the order of the
/// text takes linear time, however far lines go.
class CSVCellCount {
public:
    explicit CSVCellCount(const CSVGrammar& grammar) noexcept : _grammar(grammar) {}

    /// @param begin    where a cell begins
    /// @param letters  quotes that open no cell
    /// @throws std::bad_alloc
    [[nodiscard]] std::size_t from(std::size_t begin, std::span<const std::size_t> letters);

private:
    [[nodiscard]] std::size_t delimiterBehind(std::size_t begin,
                                              std::span<const std::size_t> letters) const noexcept;

    CSVGrammar _grammar;
    std::vector<std::size_t> _cells; // where they begin
    std::size_t _end = 0;            // the row end behind them
    std::vector<std::size_t> _newCells;
};

} // namespace Rellinor
