#include "Private/Proxies/CSVHeaderRow.hpp"

#include <algorithm>
#include <array>
#include <optional>

#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

constexpr bool isLineEnd(char character) noexcept {
    return character == '\n' || character == '\r';
}

/// Whether a first line may name a character as the separator.
constexpr bool maySeparate(char character) noexcept {
    constexpr std::string_view never = "\"\\0123456789";
    const bool isLetter = lowerCase(character) >= 'a' && lowerCase(character) <= 'z';
    const bool isPrintable = character >= ' ' && character <= '~';
    return character == '\t' || (isPrintable && !isLetter && !never.contains(character));
}

/// Where the first line end outside quotes stands; the size of the text if there is none.
std::size_t firstRowEnd(const CSVGrammar& grammar) noexcept {
    const std::string_view text = grammar.text();
    const std::array<char, 3> delimiters = {grammar.dialect().separator, '\r', '\n'};
    for (std::size_t place = 0;; ++place) {
        if (grammar.isQuote(place)) {
            CSVGrammar::Quote quote;
            do {
                quote = grammar.quoteFrom(place + 1, text.size());
                place = quote.place;
                // The carriage return may turn out to be a row end.
            } while (place < text.size() && !quote.closes && text[place + 1] != '\r');
        }
        place = std::min(text.find_first_of({delimiters.data(), delimiters.size()}, place),
                         text.size());
        if (place == text.size() || isLineEnd(text[place])) {
            return place;
        }
    }
}

/// What ends rows: carriage returns alone if the first row end is one that no line feed follows.
char rowEndOf(const CSVGrammar& grammar) noexcept {
    const std::size_t place = firstRowEnd(grammar);
    const std::size_t behind = grammar.text().find_first_not_of('\r', place);
    const bool hasLineFeed = behind != std::string_view::npos && grammar.text()[behind] == '\n';
    return place == grammar.text().size() || hasLineFeed ? '\n' : '\r';
}

/// Reads a cell; returns the delimiter behind it.
std::size_t readCell(const CSVGrammar& grammar, std::size_t begin, CSVLine& line) {
    if (!grammar.isQuote(begin)) {
        const std::size_t delimiter = grammar.delimiterFrom(begin);
        line.append(grammar.cell(begin, delimiter));
        return delimiter;
    }
    CSVGrammar::Quote quote{.place = begin};
    while (quote.place < grammar.text().size() && !quote.closes) {
        quote = grammar.quoteFrom(quote.place + 1, grammar.text().size());
    }
    line.appendWritten(grammar.text().substr(begin + 1, quote.place - begin - 1));
    return grammar.delimiterFrom(quote.place);
}

} // namespace

std::optional<char> namedSeparator(std::string_view text) noexcept {
    constexpr std::string_view name = "sep=";
    if (!text.starts_with(name) || text.size() <= name.size()) {
        return std::nullopt;
    }
    const char separator = text[name.size()];
    const std::string_view behind = text.substr(name.size() + 1);
    const bool isWholeLine = behind.empty() || isLineEnd(behind.front());
    return isWholeLine && maySeparate(separator) ? std::optional(separator) : std::nullopt;
}

CSVHeaderRow::CSVHeaderRow(std::string_view text, CSVDialect dialect)
    : grammar(text, dialect, '\n') {
    const std::optional<char> separator = namedSeparator(text);
    dialect.separator = separator.value_or(dialect.separator);
    grammar = CSVGrammar(text, dialect, '\n');
    grammar = CSVGrammar(text, dialect, rowEndOf(grammar));

    end = separator ? std::min(grammar.endOfLine(0) + 1, text.size()) : 0;
    for (bool isBlank = true; isBlank && end < text.size();) {
        line.beginAt(end);
        std::size_t delimiter = readCell(grammar, end, line);
        isBlank = grammar.isEndOfRow(delimiter) && grammar.cell(end, delimiter).empty();
        while (!grammar.isEndOfRow(delimiter)) {
            delimiter = readCell(grammar, delimiter + 1, line);
        }
        end = std::min(delimiter + 1, text.size());
        if (isBlank) {
            line.keepFirst(0);
        }
    }
}

} // namespace Rellinor
