#pragma once

#include <cstddef>
#include <string_view>

#include "Private/Proxies/CSVGrammar.hpp"
#include "Private/Proxies/CSVLine.hpp"
#include "Private/Proxies/CSVRecovery.hpp"
#include "Private/Text/CellScanner.hpp"

namespace Rellinor {

/// Reads the lines of a CSV text that have any character, as they are needed: without changing the
/// text, so that it can go back to where a line began.
///
/// A line whose quotes are sound is cut at 64 bytes at a time; any other is left to `CSVRecovery`.
class CSVLines {
public:
    /// @param width  how many cells the header has
    CSVLines(const CSVGrammar& grammar, std::size_t width) noexcept
        : _text(grammar.text()), _rowEnd(grammar.rowEnd()),
          _scanner(_text, grammar.dialect().separator, _rowEnd,
                   grammar.dialect().quotes == CSVQuotes::backslashed),
          _recovery(grammar, width) {}

    /// Goes to where a line begins.
    void goTo(std::size_t place) noexcept {
        _place = place;
        _scanner.beginRowAt(place);
    }

    /// Where the next line begins.
    [[nodiscard]] std::size_t place() const noexcept { return _place; }

    /// Reads the next line; false if there is none left.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool read(CSVLine& line);

private:
    [[nodiscard]] bool isEndOfRow(std::size_t delimiter) const noexcept {
        return delimiter >= _text.size() || _text[delimiter] == _rowEnd;
    }

    /// Where the last cell of a row ends, in front of carriage returns that belong to the row end.
    [[nodiscard]] std::size_t cellEnd(std::size_t begin, std::size_t rowEnd) const noexcept {
        std::size_t end = rowEnd;
        if (end < _text.size() && _rowEnd == '\n') {
            while (end > begin && _text[end - 1] == '\r') {
                --end;
            }
        }
        return end;
    }

    std::string_view _text;
    char _rowEnd;
    CellScanner _scanner;
    CSVRecovery _recovery;
    std::size_t _place = 0;
};

} // namespace Rellinor
