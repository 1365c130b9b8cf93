#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Rellinor::Host {

/// One row of a CSV text. Its views are into the `CSVRows` it came from.
struct CSVRow {
    std::size_t line = 0;                ///< where it begins, counted from 1
    std::string_view text;               ///< all of it, with its quotes and line breaks
    std::string_view written;            ///< as long as `text`, with `\"` as it stands in the file
    std::vector<std::string_view> cells; ///< as they stand, with their quotes; not all of very many
    std::size_t numberOfCells = 0;       ///< of all
};

/// The cells of a row as they stand, one after the other, however many there are.
class CSVCells {
public:
    explicit CSVCells(std::string_view row) noexcept : _rest(row) {}

    /// Reads the next cell into `cell`; false if there is none.
    [[nodiscard]] bool next(std::string_view& cell) noexcept;

private:
    std::string_view _rest;
    bool _ended = false;
};

/// A cell without the pair of quotes around it, if there is one: as it is imported.
[[nodiscard]] inline std::string_view unquoted(std::string_view cell) noexcept {
    if (cell.empty() || cell.front() != '"' || cell.back() != '"') {
        return cell;
    }
    return cell.size() < 2 ? std::string_view() : cell.substr(1, cell.size() - 2);
}

/// The rows of a CSV text as an import sees them: `\"` stands for a doubled quote, CR LF ends a
/// line, a line break or comma after an odd number of quotes belongs to the cell, and a blank row
/// is none.
class CSVRows {
public:
    /// How many of a row's cells are listed, far more than any export has.
    static constexpr std::size_t mostCells = 100;

    explicit CSVRows(std::string_view contents) : CSVRows(std::string(contents)) {}

    explicit CSVRows(std::string&& contents);

    /// Reads the next row into `row`; false if there is none.
    [[nodiscard]] bool next(CSVRow& row);

    /// Whether all rows run together, since only carriage returns part them.
    [[nodiscard]] bool areOneLine() const noexcept;

private:
    void takeRow(CSVRow& row);

    [[nodiscard]] std::string_view text() const noexcept {
        return _text.empty() ? _written : _text;
    }

    std::string _written;
    std::string _text; ///< empty if it is what is written
    std::size_t _position = 0;
    std::size_t _line = 1;
    bool _ended = false;
};

} // namespace Rellinor::Host
