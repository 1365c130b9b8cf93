#include "Private/Proxies/CSVGrammar.hpp"

#include <algorithm>
#include <bit>
#include <span>

#include "Private/Text/ByteBlock.hpp"

namespace Rellinor {

namespace {

/// The first of two characters from a place on; the limit if there is none before.
std::size_t findEither(std::string_view text, std::size_t begin, std::size_t limit, char one,
                       char other) noexcept {
    for (; begin < limit; begin += ByteBlock::size) {
        const std::string_view rest(text.data() + begin, text.size() - begin);
        const std::uint64_t found = ByteBlock::first(rest).equalTo(one, other);
        if (found != 0) {
            return std::min(begin + static_cast<std::size_t>(std::countr_zero(found)), limit);
        }
    }
    return limit;
}

} // namespace

bool CSVGrammar::isEndOfCell(std::size_t place) const noexcept {
    if (place >= _text.size() || _text[place] == _dialect.separator || _text[place] == _rowEnd) {
        return true;
    }
    if (_text[place] != '\r' || _rowEnd != '\n') {
        return false;
    }
    const std::size_t behind = _text.find_first_not_of('\r', place);
    return behind != std::string_view::npos && _text[behind] == '\n';
}

std::size_t CSVGrammar::delimiterFrom(std::size_t place) const noexcept {
    return findEither(_text, place, _text.size(), _dialect.separator, _rowEnd);
}

std::size_t CSVGrammar::endOfLine(std::size_t place) const noexcept {
    return std::min(_text.find(_rowEnd, place), _text.size());
}

std::string_view CSVGrammar::cell(std::size_t begin, std::size_t delimiter) const noexcept {
    std::size_t end = delimiter;
    if (end < _text.size() && _text[end] == '\n' && _rowEnd == '\n') {
        while (end > begin && _text[end - 1] == '\r') {
            --end;
        }
    }
    return _text.substr(begin, end - begin);
}

CSVGrammar::Quote CSVGrammar::quoteFrom(std::size_t begin, std::size_t limit) const noexcept {
    const bool hasEscapes = _dialect.quotes == CSVQuotes::backslashed;
    for (std::size_t place = begin;;) {
        place = findEither(_text, place, limit, '"', hasEscapes ? '\\' : '"');
        if (place >= limit) {
            return {.place = limit};
        }
        const char next = place + 1 < _text.size() ? _text[place + 1] : '\0';
        if (_text[place] == '\\') {
            place += next == '"' || next == '\\' ? 2 : 1;
        } else if (next == '"') {
            place += 2;
        } else {
            return {.place = place, .closes = isEndOfCell(place + 1)};
        }
    }
}

std::size_t undoQuotes(std::span<char> cell, CSVQuotes quotes) noexcept {
    std::size_t kept = 0;
    for (std::size_t index = 0; index < cell.size(); ++index) {
        const char next = index + 1 < cell.size() ? cell[index + 1] : '\0';
        const bool isPair = cell[index] == '"' && next == '"';
        const bool isEscape = quotes == CSVQuotes::backslashed && cell[index] == '\\' &&
                              (next == '"' || next == '\\');
        index += isPair || isEscape ? 1 : 0;
        cell[kept++] = cell[index];
    }
    std::ranges::fill(cell.subspan(kept), '"');
    return kept;
}

} // namespace Rellinor
