#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "Private/Proxies/CSVGrammar.hpp"
#include "Private/Proxies/CSVLine.hpp"
#include "Private/Proxies/CSVOutlook.hpp"

namespace Rellinor {

/// Reads a line of a CSV text whose quotes may be broken.
///
/// Inside a quoted cell, a quote that neither closes it nor stands for one is stray. Its cell holds
/// if
/// - it ends on the line of the file that has its stray quotes,
/// - that line is not sound by itself, where the cell began before it,
/// - and the whole line of cells, read so, has as many cells as the header.
///
/// If a cell does not hold, or never ends, the quote that opens it is a letter, and the line is
/// read again from there. Of several such cells that is the first one; they are all those with
/// stray quotes if the number of cells is wrong. After eight such quotes in a line, later cells
/// with a stray quote do not hold at all.
///
/// All lines of a text together take linear time. What is read in vain behind a quote ends on the
/// next line that has an odd number of quotes behind each other, and no line without that can run
/// into the next one. `CSVOutlook` says whether a cell with stray quotes holds, without reading on.
class CSVRecovery {
public:
    /// @param width  how many cells the header has
    CSVRecovery(const CSVGrammar& grammar, std::size_t width) noexcept
        : _grammar(grammar), _width(width), _outlook(grammar, width) {}

    /// How far a line was read.
    struct Place {
        std::size_t next = 0;     ///< where the next line begins, or the next cell
        bool isBehindRow = false; ///< or else no quote is left in the line
    };

    /// Reads the line that begins at a place, as far as it has quotes.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] Place read(std::size_t begin, CSVLine& line);

private:
    static constexpr std::size_t mostLetters = 8;

    struct QuotedCell {
        bool holds = false; // whatever the number of cells
        bool hasStrayQuote = false;
        std::size_t end = 0; // the quote that closes it
    };

    /// The next one of a character, looked for once for all places before it.
    class NextOne {
    public:
        /// The size of the text if there is none.
        [[nodiscard]] std::size_t from(std::size_t place, std::string_view text,
                                       char character) noexcept;

    private:
        std::size_t _from = 1; // behind `_place`: no place is known
        std::size_t _place = 0;
    };

    /// The first quoted cell with a stray quote: it holds if the number of cells is right.
    struct Candidate {
        std::size_t index;
        std::size_t begin;
    };

    [[nodiscard]] QuotedCell quotedCell(std::size_t begin) noexcept;
    [[nodiscard]] bool endsOnSoundLine(std::size_t begin, std::size_t end) const noexcept;
    std::size_t readQuoted(std::size_t begin, const QuotedCell& cell, CSVLine& line) const;
    std::size_t readUnquoted(std::size_t begin, CSVLine& line) const;
    [[nodiscard]] bool fits(std::size_t count, std::size_t next);
    [[nodiscard]] std::size_t giveUpCandidate(CSVLine& line);

    [[nodiscard]] bool isWithoutQuotes(std::size_t place) noexcept;
    [[nodiscard]] bool isLetter(std::size_t quote) const noexcept;

    [[nodiscard]] bool isBehindMostLetters(std::size_t place) const noexcept;

    CSVGrammar _grammar;
    std::size_t _width;
    CSVOutlook _outlook;
    std::vector<std::size_t> _letters; // quotes of this line that were found to open no cell
    std::optional<Candidate> _candidate;
    NextOne _endOfStray; // of the line that a stray quote is on
    NextOne _endOfLine;  // of the line that is read
    NextOne _quote;
};

} // namespace Rellinor
