#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "Private/Proxies/CSVDialect.hpp"

namespace Rellinor {

/// What the bytes of a CSV text mean at a place, told slowly: for headers and for what is damaged.
class CSVGrammar {
public:
    /// @param text    outlives this
    /// @param rowEnd  a line feed, to which carriage returns before it belong; or a carriage return
    CSVGrammar(std::string_view text, const CSVDialect& dialect, char rowEnd) noexcept
        : _text(text), _dialect(dialect), _rowEnd(rowEnd) {}

    [[nodiscard]] std::string_view text() const noexcept { return _text; }

    [[nodiscard]] const CSVDialect& dialect() const noexcept { return _dialect; }

    [[nodiscard]] char rowEnd() const noexcept { return _rowEnd; }

    [[nodiscard]] bool isQuote(std::size_t place) const noexcept {
        return place < _text.size() && _text[place] == '"';
    }

    /// Whether a separator, a row end or the end of the text stands at a place.
    [[nodiscard]] bool isEndOfCell(std::size_t place) const noexcept;

    /// Whether a delimiter ends its row: the place of a row end, or the size of the text.
    [[nodiscard]] bool isEndOfRow(std::size_t delimiter) const noexcept {
        return delimiter == _text.size() || _text[delimiter] == _rowEnd;
    }

    /// The first separator or row end from a place on; the size of the text if there is none.
    [[nodiscard]] std::size_t delimiterFrom(std::size_t place) const noexcept;

    /// The end of the line that a place is on, in quotes or not.
    [[nodiscard]] std::size_t endOfLine(std::size_t place) const noexcept;

    /// What is between a place and a delimiter, without the carriage returns of a row end.
    [[nodiscard]] std::string_view cell(std::size_t begin, std::size_t delimiter) const noexcept;

    /// A quote inside a quoted cell that stands for none.
    struct Quote {
        std::size_t place = 0;
        bool closes = false; // or else it is stray
    };

    /// The first such quote; its place is the limit if there is none before that.
    ///
    /// @param begin  inside the cell
    [[nodiscard]] Quote quoteFrom(std::size_t begin, std::size_t limit) const noexcept;

private:
    std::string_view _text;
    CSVDialect _dialect;
    char _rowEnd;
};

/// Undoes how quotes are written inside a quoted cell, in place; returns how much of it is left.
/// What is behind that holds no line end.
[[nodiscard]] std::size_t undoQuotes(std::span<char> cell, CSVQuotes quotes) noexcept;

} // namespace Rellinor
