#include "Private/Proxies/CSVOutlook.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Rellinor {

void CSVOutlook::forgetBefore(std::size_t place) noexcept {
    while (!_runs.empty() && _runs.begin()->second.back().begin < place) {
        _runs.erase(_runs.begin());
    }
}

CSVOutlook::Answer CSVOutlook::from(std::size_t begin, std::span<const std::size_t> letters) {
    Answer answer;
    const auto addBroken = [&](std::size_t cell) {
        answer.broken = answer.broken == nowhere ? cell : answer.broken;
    };

    Part last = part(begin, nowhere, letters);
    for (;;) {
        answer.count += last.count;
        addBroken(last.broken);
        if (last.open == nowhere) {
            return answer;
        }
        const Line rest = line(last.end + 1);
        const std::size_t broken = rest.broken == before ? last.open : rest.broken;
        std::size_t letter = nowhere; // the first in the rest
        for (const std::size_t other : letters) {
            letter = other >= rest.begin ? std::min(letter, other) : letter;
        }
        if (letter > rest.end) {
            answer.count += rest.count;
            addBroken(broken);
            return answer;
        }
        // The line of the letter is another one, but not those before it.
        const Line other = line(_grammar.text().substr(0, letter).rfind(_grammar.rowEnd()) + 1);
        answer.count += rest.count - other.count;
        if (broken < other.begin) {
            addBroken(broken);
        }
        last = part(other.begin, other.begin == rest.begin ? last.open : before, letters);
    }
}

/// The cells from a place to the end of the line or row.
///
/// @param open  where the cell begins that the place is inside of; nowhere if a cell begins there
CSVOutlook::Part CSVOutlook::part(std::size_t begin, std::size_t open,
                                  std::span<const std::size_t> letters) const noexcept {
    Part part{.end = _grammar.endOfLine(begin), .open = open};
    std::size_t lineBegin = open == nowhere ? nowhere : begin; // if the cell began before
    for (std::size_t place = begin;; ++place, lineBegin = nowhere) {
        if (part.open == nowhere && _grammar.isQuote(place) &&
            std::ranges::find(letters, place) == letters.end()) {
            part.open = place;
            ++place;
        }
        if (part.open != nowhere) {
            const std::size_t quote = closingQuote(place, lineBegin, part);
            if (quote == nowhere) {
                return part;
            }
            part.open = nowhere;
            place = quote + 1;
        }
        place = _grammar.delimiterFrom(place);
        ++part.count;
        if (_grammar.isEndOfRow(place)) {
            part.end = place;
            return part;
        }
    }
}

/// The quote that closes the cell that is open in a part, if it does so on the same line.
///
/// @param lineBegin  where that is if the cell began before
std::size_t CSVOutlook::closingQuote(std::size_t begin, std::size_t lineBegin,
                                     Part& part) const noexcept {
    bool hasStrayQuote = false;
    CSVGrammar::Quote quote = _grammar.quoteFrom(begin, part.end);
    while (quote.place < part.end && !quote.closes) {
        hasStrayQuote = true;
        quote = _grammar.quoteFrom(quote.place + 1, part.end);
    }
    const bool isClosed = quote.place < part.end;
    const bool runsOut = !isClosed && part.end == _grammar.text().size();
    const bool isOnSoundLine = hasStrayQuote && lineBegin != nowhere && isSoundByItself(lineBegin);
    if (part.broken == nowhere && (runsOut || isOnSoundLine || (hasStrayQuote && !isClosed))) {
        part.broken = part.open;
    }
    if (runsOut) {
        part.open = nowhere;
        ++part.count;
    }
    return isClosed ? quote.place : nowhere;
}

/// What follows from the beginning of a line inside quotes.
CSVOutlook::Line CSVOutlook::line(std::size_t begin) {
    Lines lines;
    std::vector<std::size_t> open;
    Line rest;
    for (std::size_t place = begin;;) {
        if (const Line* const found = known(place)) {
            rest = *found;
            break;
        }
        const Part own = part(place, before, {});
        lines.push_back({.begin = place, .count = own.count, .end = own.end, .broken = own.broken});
        open.push_back(own.open);
        if (own.open == nowhere) {
            rest = {.end = own.end};
            break;
        }
        place = own.end + 1;
    }
    for (std::size_t index = lines.size(); index-- > 0; rest = lines[index]) {
        lines[index].count += rest.count;
        lines[index].end = rest.end;
        if (lines[index].broken == nowhere) {
            lines[index].broken = rest.broken == before ? open[index] : rest.broken;
        }
    }
    if (!lines.empty()) {
        _runs.emplace(begin, std::move(lines));
    }
    return rest;
}

const CSVOutlook::Line* CSVOutlook::known(std::size_t lineBegin) const noexcept {
    const auto behind = _runs.upper_bound(lineBegin);
    if (behind == _runs.begin()) {
        return nullptr;
    }
    const Lines& lines = std::prev(behind)->second;
    const auto found = std::ranges::lower_bound(lines, lineBegin, {}, &Line::begin);
    return found != lines.end() && found->begin == lineBegin ? &*found : nullptr;
}

bool CSVOutlook::isSoundByItself(std::size_t lineBegin) const noexcept {
    const std::size_t lineEnd = _grammar.endOfLine(lineBegin);
    std::size_t place = lineBegin;
    for (std::size_t count = 1; count <= _width; ++count) {
        if (_grammar.isQuote(place)) {
            const CSVGrammar::Quote quote = _grammar.quoteFrom(place + 1, lineEnd);
            if (!quote.closes) {
                return false;
            }
            place = quote.place + 1;
        }
        place = _grammar.delimiterFrom(place);
        if (place == lineEnd) {
            return count == _width;
        }
        ++place;
    }
    return false;
}

} // namespace Rellinor
