#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <vector>

#include "Private/Proxies/CSVGrammar.hpp"

namespace Rellinor {

/// What follows in a row of a CSV text if every stray quote inside quotes is a letter.
///
/// A row goes over the end of a line of the file only inside quotes, and what follows from there
/// is the same for all rows that do. So it is found out once for each line, and kept: the rows of a
/// text take linear time together, however far each of them goes.
class CSVOutlook {
public:
    static constexpr auto nowhere = static_cast<std::size_t>(-1);

    struct Answer {
        std::size_t count = 0;        ///< how many cells there are
        std::size_t broken = nowhere; ///< where the first cell begins that does not hold anyway
    };

    /// @param width  how many cells the header has
    CSVOutlook(const CSVGrammar& grammar, std::size_t width) noexcept
        : _grammar(grammar), _width(width) {}

    /// Forgets what is before a place.
    void forgetBefore(std::size_t place) noexcept;

    /// @param begin    where a cell begins
    /// @param letters  quotes that open no cell
    /// @throws std::bad_alloc
    [[nodiscard]] Answer from(std::size_t begin, std::span<const std::size_t> letters);

    /// Whether a line of the file has as many cells as the header, and its quoted cells close on it
    /// without a stray quote.
    [[nodiscard]] bool isSoundByItself(std::size_t lineBegin) const noexcept;

private:
    static constexpr std::size_t before = nowhere - 1; // a cell that began before the line

    /// Cells on one line of the file.
    struct Part {
        std::size_t count = 0;        // those that end on it
        std::size_t end = 0;          // the end of the row, or of the line inside quotes
        std::size_t open = nowhere;   // where the cell begins that goes on in the next line
        std::size_t broken = nowhere; // where the first one begins that does not hold
    };

    /// What follows from the beginning of a line inside quotes.
    struct Line {
        std::size_t begin = 0;
        std::size_t count = 0;
        std::size_t end = 0; // of the row
        std::size_t broken = nowhere;
    };

    using Lines = std::vector<Line>; // one behind the other

    [[nodiscard]] Part part(std::size_t begin, std::size_t open,
                            std::span<const std::size_t> letters) const noexcept;
    [[nodiscard]] std::size_t closingQuote(std::size_t begin, std::size_t lineBegin,
                                           Part& part) const noexcept;
    [[nodiscard]] const Line* known(std::size_t lineBegin) const noexcept;
    [[nodiscard]] Line line(std::size_t begin);

    CSVGrammar _grammar;
    std::size_t _width;
    std::map<std::size_t, Lines> _runs; // by where they begin
};

} // namespace Rellinor
