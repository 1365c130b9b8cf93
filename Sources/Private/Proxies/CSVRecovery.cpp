#include "Private/Proxies/CSVRecovery.hpp"

#include <algorithm>

namespace Rellinor {

CSVRecovery::Place CSVRecovery::read(std::size_t begin, CSVLine& line) {
    line.beginAt(begin);
    _letters.clear();
    _candidate.reset();
    _outlook.forgetBefore(begin);
    for (std::size_t place = begin;;) {
        const bool isQuoted = _grammar.isQuote(place) && !isLetter(place);
        const QuotedCell cell = isQuoted ? quotedCell(place) : QuotedCell{};
        if (isQuoted && !cell.holds && !cell.hasStrayQuote && _candidate &&
            line.count() + 1 != _width) {
            place = giveUpCandidate(line);
            continue;
        }
        if (isQuoted && !cell.holds && !(cell.hasStrayQuote && isBehindMostLetters(place))) {
            _letters.push_back(place);
        }
        const bool isNewCandidate = cell.holds && cell.hasStrayQuote && !_candidate;
        if (isNewCandidate) {
            _candidate = {.index = line.count(), .begin = place};
        }
        const std::size_t delimiter =
            cell.holds ? readQuoted(place, cell, line) : readUnquoted(place, line);
        const bool isLast = _grammar.isEndOfRow(delimiter);
        if ((isLast && _candidate && line.count() != _width) ||
            (!isLast && isNewCandidate && !fits(line.count(), delimiter + 1))) {
            place = giveUpCandidate(line);
        } else if (isLast || (!_candidate && isWithoutQuotes(delimiter + 1))) {
            return {.next = delimiter + 1, .isBehindRow = isLast};
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
        if (isBehindMostLetters(begin)) {
            return cell;
        }
        limit = _endOfStray.from(quote.place, _grammar.text(), _grammar.rowEnd());
        place = quote.place + 1;
    }
}

/// Whether a cell goes over line ends, and the line that it ends on is sound by itself.
bool CSVRecovery::endsOnSoundLine(std::size_t begin, std::size_t end) const noexcept {
    const std::string_view cell = _grammar.text().substr(begin, end - begin);
    const std::size_t lineEnd = cell.rfind(_grammar.rowEnd());
    return lineEnd != std::string_view::npos && _outlook.isSoundByItself(begin + lineEnd + 1);
}

std::size_t CSVRecovery::readQuoted(std::size_t begin, const QuotedCell& cell,
                                    CSVLine& line) const {
    if (cell.hasStrayQuote) {
        line.addStrayQuote();
    }
    line.appendWritten(_grammar.text().substr(begin + 1, cell.end - begin - 1));
    return _grammar.delimiterFrom(cell.end + 1);
}

std::size_t CSVRecovery::readUnquoted(std::size_t begin, CSVLine& line) const {
    const std::size_t delimiter = _grammar.delimiterFrom(begin);
    const std::string_view cell = _grammar.cell(begin, delimiter);
    if (cell.contains('"')) {
        line.addStrayQuote();
    }
    cell.empty() ? line.appendEmpty() : line.append(cell);
    return delimiter;
}

/// Whether the line has as many cells as the header with those that follow, once it is known which
/// of their quotes are letters.
bool CSVRecovery::fits(std::size_t count, std::size_t next) {
    for (;;) {
        const CSVOutlook::Answer following = _outlook.from(next, _letters);
        if (count + following.count != _width) {
            return false;
        }
        if (following.broken == CSVOutlook::nowhere) {
            return true;
        }
        _letters.push_back(following.broken);
        if (_letters.size() == mostLetters) {
            return true; // until its end is reached
        }
    }
}

std::size_t CSVRecovery::giveUpCandidate(CSVLine& line) {
    const Candidate candidate = *_candidate;
    _candidate.reset();
    _letters.push_back(candidate.begin);
    line.keepFirst(candidate.index);
    return candidate.begin;
}

std::size_t CSVRecovery::NextOne::from(std::size_t place, std::string_view text,
                                       char character) noexcept {
    if (place < _from || place > _place) {
        _from = place;
        _place = std::min(text.find(character, place), text.size());
    }
    return _place;
}

/// Whether no quote is left on the line that a place is on.
bool CSVRecovery::isWithoutQuotes(std::size_t place) noexcept {
    const std::string_view text = _grammar.text();
    return _quote.from(place, text, '"') >= _endOfLine.from(place, text, _grammar.rowEnd());
}

bool CSVRecovery::isBehindMostLetters(std::size_t place) const noexcept {
    return _letters.size() >= mostLetters &&
           place > *std::min_element(_letters.begin() + mostLetters - 1, _letters.end());
}

bool CSVRecovery::isLetter(std::size_t quote) const noexcept {
    return std::ranges::find(_letters, quote) != _letters.end();
}

} // namespace Rellinor
