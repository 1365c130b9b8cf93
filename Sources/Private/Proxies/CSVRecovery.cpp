#include "Private/Proxies/CSVRecovery.hpp"

#include <algorithm>

namespace Rellinor {

std::size_t CSVRecovery::read(std::size_t begin, CSVLine& line) {
    line.clear();
    line.begin = begin;
    _letters.clear();
    _candidate.reset();
    for (std::size_t place = begin;;) {
        bool mayChangeWidth = isLetter(place);
        std::size_t delimiter = 0;
        const QuotedCell cell =
            _grammar.isQuote(place) && !isLetter(place) ? quotedCell(place) : QuotedCell{};
        if (cell.holds) {
            mayChangeWidth = cell.hasStrayQuote && !_candidate;
            delimiter = readQuoted(place, cell, line);
        } else {
            if (_grammar.isQuote(place) && !isLetter(place)) {
                if (_candidate && !cell.hasStrayQuote && line.count() + 1 != _width) {
                    place = giveUpCandidate(line);
                    continue;
                }
                mayChangeWidth = true;
                line.hasRunOnCell = true;
                if (!cell.hasStrayQuote || !hasMostLetters()) {
                    _letters.push_back(place);
                }
            }
            delimiter = readUnquoted(place, line);
        }
        const bool isLast = _grammar.isEndOfRow(delimiter);
        if (_candidate && (mayChangeWidth || isLast) && !mayHaveWidth(line.count(), delimiter)) {
            place = giveUpCandidate(line);
        } else if (isLast) {
            return delimiter;
        } else {
            place = delimiter + 1;
        }
    }
}

/// Reads on from a quote that opens a cell.
CSVRecovery::QuotedCell CSVRecovery::quotedCell(std::size_t begin) noexcept {
    QuotedCell cell;
    std::size_t limit = _grammar.text().size();
    for (std::size_t place = begin + 1;;) {
        const CSVGrammar::Quote quote = _grammar.quoteFrom(place, limit);
        if (quote.place == limit) {
            return cell;
        }
        if (quote.closes) {
            cell.end = quote.place;
            cell.holds = !cell.hasStrayQuote || !endsOnSoundLine(begin, cell.end);
            return cell;
        }
        cell.hasStrayQuote = true;
        if (hasMostLetters()) {
            return cell;
        }
        limit = endOfLine(quote.place);
        place = quote.place + 1;
    }
}

/// Whether a cell goes over line ends, and the line that it ends on is sound by itself.
bool CSVRecovery::endsOnSoundLine(std::size_t begin, std::size_t end) const noexcept {
    const std::string_view cell = _grammar.text().substr(begin, end - begin);
    const std::size_t lineEnd = cell.rfind(_grammar.rowEnd());
    return lineEnd != std::string_view::npos && isSoundByItself(begin + lineEnd + 1);
}

/// Whether a line of the file has as many cells as the header, and its quoted cells close on it
/// without a stray quote.
bool CSVRecovery::isSoundByItself(std::size_t lineBegin) const noexcept {
    const std::size_t lineEnd = _grammar.endOfLine(lineBegin);
    std::size_t count = 0;
    for (std::size_t place = lineBegin; count < _width; ++count) {
        std::size_t delimiter = 0;
        if (_grammar.isQuote(place)) {
            const CSVGrammar::Quote quote = _grammar.quoteFrom(place + 1, lineEnd);
            if (!quote.closes) {
                return false;
            }
            delimiter = _grammar.delimiterFrom(quote.place + 1);
        } else {
            delimiter = _grammar.delimiterFrom(place);
        }
        if (delimiter == lineEnd) {
            return count + 1 == _width;
        }
        place = delimiter + 1;
    }
    return false;
}

std::size_t CSVRecovery::readQuoted(std::size_t begin, const QuotedCell& cell, CSVLine& line) {
    if (cell.hasStrayQuote) {
        line.addStrayQuote();
        if (!_candidate) {
            _candidate = {.index = line.count(), .begin = begin};
        }
    }
    line.appendWritten(_grammar.text().substr(begin + 1, cell.end - begin - 1));
    return _grammar.delimiterFrom(cell.end + 1);
}

std::size_t CSVRecovery::readUnquoted(std::size_t begin, CSVLine& line) const {
    const std::size_t delimiter = _grammar.delimiterFrom(begin);
    const std::string_view cell = _grammar.cell(begin, delimiter);
    if (!cell.starts_with('"') && cell.contains('"')) {
        line.addStrayQuote();
    }
    line.append(cell);
    return delimiter;
}

/// Whether the line has as many cells as the header if it goes on behind a delimiter.
bool CSVRecovery::mayHaveWidth(std::size_t count, std::size_t delimiter) {
    if (_grammar.isEndOfRow(delimiter)) {
        return count == _width;
    }
    return hasMostLetters() || count + _following.from(delimiter + 1, _letters) == _width;
}

std::size_t CSVRecovery::giveUpCandidate(CSVLine& line) {
    const Candidate candidate = *_candidate;
    _candidate.reset();
    _letters.push_back(candidate.begin);
    line.keepFirst(candidate.index);
    line.hasRunOnCell = true;
    return candidate.begin;
}

/// The end of the line that a place is on; looked for once, however many cells the line has.
std::size_t CSVRecovery::endOfLine(std::size_t place) noexcept {
    if (place < _linePlace || place > _lineEnd) {
        _linePlace = place;
        _lineEnd = _grammar.endOfLine(place);
    }
    return _lineEnd;
}

bool CSVRecovery::isLetter(std::size_t quote) const noexcept {
    return std::ranges::find(_letters, quote) != _letters.end();
}

} // namespace Rellinor
