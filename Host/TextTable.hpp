#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Host/Terminal.hpp"

namespace Rellinor::Host {

/// How a text stands out on a terminal that has colours.
enum class Style : std::uint8_t {
    plain,
    bold,
    dim,
};

/// A text as it is written in that style.
[[nodiscard]] std::string styled(std::string_view text, Style style, const Terminal& terminal);

/// A column of a table.
struct Column {
    std::string_view heading;
    bool isWhole = false; ///< half of its text is of no use: it is the last to be shortened
};

/// A text in a table, displayable.
struct Cell {
    std::string text;
    Style style = Style::plain;
};

/// Writes rows under headings, in columns aligned by the width that is displayed.
///
/// On a terminal every line fits: the narrow columns keep their width, and the others share the
/// rest. If too little would be left for them, each field has a line of its own.
///
/// In a file, cells stay whole, so that nothing is lost on a search. One that is far too long for
/// its column pushes on the rest of its line, and does not widen every other line.
class TextTable {
public:
    /// More than anybody reads in one cell, which bounds the memory of a text of many megabytes.
    static constexpr std::size_t widestCell = std::size_t{64} << 10U;

    TextTable(std::span<const Column> columns, const Terminal& terminal);

    /// How wide a cell can be here at most: what is wider may be shortened to that beforehand.
    [[nodiscard]] std::size_t widest() const noexcept { return _widest; }

    /// Makes room for a row, which has a cell for each column. Every row is measured before the
    /// first is written.
    void measure(std::span<const Cell> row);

    /// Writes the headings, once every row is measured.
    void writeHeadings(std::ostream& out);

    void write(std::span<const Cell> row, std::ostream& out) const;

private:
    void fitTerminal();
    void writeLine(std::span<const Cell> row, std::ostream& out) const;
    void writeFields(std::span<const Cell> row, std::ostream& out) const;

    std::span<const Column> _columns;
    Terminal _terminal;
    std::size_t _widest;
    std::vector<std::size_t> _widths; ///< of the columns
    bool _isList = false;             ///< each field has a line of its own
};

} // namespace Rellinor::Host
