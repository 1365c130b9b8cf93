#include "Host/Inspection/CSVQuotes.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "Host/Inspection/CSVInspection.hpp"

namespace Rellinor::Host {

namespace {

/// The cell without white space around it.
std::string_view stripped(std::string_view cell) noexcept {
    constexpr std::string_view whiteSpace = " \t\r";
    const std::size_t begin = std::min(cell.find_first_not_of(whiteSpace), cell.size());
    const std::size_t end = cell.find_last_not_of(whiteSpace) + 1;
    return cell.substr(begin, std::max(end, begin) - begin);
}

/// Where the quotes of a cell stop to pair up, which is its end if the first is never closed.
/// Absent if there are none, or the cell stands in quotes and those inside are doubled.
std::optional<std::size_t> faultIn(std::string_view cell) noexcept {
    std::size_t quote = cell.find('"');
    if (quote == std::string_view::npos) {
        return std::nullopt;
    }
    if (quote > 0) {
        return quote;
    }
    for (;;) {
        quote = cell.find('"', quote + 1);
        if (quote == std::string_view::npos) {
            return cell.size();
        }
        if (quote + 1 == cell.size()) {
            return std::nullopt;
        }
        if (cell[quote + 1] != '"') {
            return quote;
        }
        ++quote;
    }
}

/// Whether a cell holds what should have parted it from the next cell or row.
bool runsOn(std::string_view cell) noexcept {
    return cell.find_first_of(",\n") != std::string_view::npos ||
           std::ranges::count(cell, '"') % 2 != 0;
}

/// Where a backslash first stands before a quote that looks like the end of a cell, or like one of
/// a doubled quote, which the backslash takes from it.
std::size_t positionOfMisreadBackslash(std::string_view written) noexcept {
    constexpr std::string_view escaped = "\\\"";
    std::size_t position = written.find(escaped);
    while (position != std::string_view::npos) {
        const std::string_view next = written.substr(position + escaped.size(), 1);
        if (next.empty() || next == "," || next == "\n" || next == "\"") {
            break;
        }
        position = written.find(escaped, position + escaped.size());
    }
    return position;
}

std::size_t lineFeedsIn(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

/// A line feed at the end, which only the last row of a file can have, begins no other line.
std::size_t linesIn(std::string_view text) {
    return lineFeedsIn(text) + (text.ends_with('\n') ? 0 : 1);
}

} // namespace

bool CSVQuotes::look(const CSVRow& row) {
    Damage* const previous = std::exchange(_previous, nullptr);
    if (!row.text.contains('"')) {
        return false;
    }
    CSVCells cells(row.text);
    for (std::string_view cell; cells.next(cell);) {
        const std::string_view content = stripped(cell);
        const auto fault = faultIn(content);
        if (!fault) {
            if (content.contains('"') && content.size() != cell.size()) {
                addOnce(_outside, row.line + lineFeedsIn({row.text.begin(), cell.begin()}));
            }
        } else if (runsOn(content)) {
            // Of quotes that have changed places, one that is closed at the beginning of a row was
            // opened by the row before.
            if (previous != nullptr && cell.begin() == row.text.begin() &&
                !content.starts_with('"')) {
                _previous = previous;
                _previous->linesSwallowed += linesIn(row.text);
            } else {
                addDamage(row, content, *fault);
            }
            return true;
        }
    }
    return false;
}

void CSVQuotes::addDamage(const CSVRow& row, std::string_view cell, std::size_t positionOfFault) {
    const auto offset = static_cast<std::size_t>(cell.begin() - row.text.begin());
    std::size_t culprit = offset + (cell.starts_with('"') ? 0 : positionOfFault);
    _previous = &_open;
    if (cell.starts_with('"')) {
        const std::size_t backslash =
            positionOfMisreadBackslash(row.written.substr(offset, positionOfFault + 1));
        if (backslash != std::string_view::npos) {
            culprit = offset + backslash;
            _previous = &_backslash;
        }
    }
    _previous->places.push_back(row.line + lineFeedsIn(row.text.substr(0, culprit)));
    _previous->linesSwallowed += linesIn(row.text.substr(culprit)) - 1;
}

void CSVQuotes::report(const Damage& damage, std::string_view one, std::string_view many,
                       Inspection& inspection) {
    const bool single = damage.places.size() == 1;
    std::string text(single ? one : many);
    if (damage.linesSwallowed > 0) {
        text += single ? " swallows the next " : " swallow ";
        text += damage.linesSwallowed == 1 ? std::string("line")
                                           : std::to_string(damage.linesSwallowed) + " lines";
    }
    addIfAnywhere(inspection.wrong, {std::move(text), damage.places});
}

void CSVQuotes::report(Inspection& inspection) const {
    report(_open, "a quote that is not closed", "quotes that are not closed", inspection);
    report(_backslash, "a backslash that keeps a quote from closing its cell",
           "backslashes that keep quotes from closing their cells", inspection);
    addIfAnywhere(inspection.wrong, _outside);
}

} // namespace Rellinor::Host
