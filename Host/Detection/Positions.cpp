#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "Host/CSVRows.hpp"
#include "Host/Detection/Recognisers.hpp"
#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

/// A layout by what stands in its cells.
struct PositionalLayout {
    std::string_view layout;
    ImportSource source;
    std::size_t leastCells;
    bool mayHaveMore;
    std::size_t address;     ///< the cell that mostly holds an address
    std::size_t afterSecret; ///< how many cells follow the password
    Confidence confidence;
    std::string_view reason;
};

constexpr std::array<PositionalLayout, 4> layouts = {{
    {.layout = "Dashlane export",
     .source = ImportSource::dashlane,
     .leastCells = 5,
     .mayHaveMore = true,
     .address = 1,
     .afterSecret = 1,
     .confidence = Confidence::likely,
     .reason = "rows of five cells or more, mostly with an address in the second"},
    {.layout = "LastPass export",
     .source = ImportSource::lastPass,
     .leastCells = 7,
     .mayHaveMore = false,
     .address = 0,
     .afterSecret = 4,
     .confidence = Confidence::possible,
     .reason = "seven columns without names, mostly with an address in the first"},
    {.layout = "KeePass export",
     .source = ImportSource::keePass,
     .leastCells = 5,
     .mayHaveMore = false,
     .address = 3,
     .afterSecret = 2,
     .confidence = Confidence::possible,
     .reason = "five columns without names, mostly with an address in the fourth"},
    {.layout = "KeePassXC export",
     .source = ImportSource::keePassXC,
     .leastCells = 6,
     .mayHaveMore = false,
     .address = 4,
     .afterSecret = 2,
     .confidence = Confidence::possible,
     .reason = "six columns without names, mostly with an address in the fifth"},
}};

bool isLetter(char character) noexcept {
    return lowerCase(character) >= 'a' && lowerCase(character) <= 'z';
}

bool isAddress(std::string_view cell) noexcept {
    const std::string_view text = unquoted(cell);
    const std::size_t scheme = text.find("://");
    return text.starts_with("www.") || (scheme != std::string_view::npos && scheme > 0 &&
                                        std::ranges::all_of(text.substr(0, scheme), isLetter));
}

/// Whether an identifier such as {01234567-89AB-CDEF-0123-456789ABCDEF} is in the text.
bool hasIdentifier(std::string_view text) noexcept {
    constexpr std::string_view pattern = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";

    const auto fits = [](char character, char expected) {
        const bool isDigit = (character >= '0' && character <= '9') ||
                             (lowerCase(character) >= 'a' && lowerCase(character) <= 'f');
        return expected == 'x' ? isDigit : character == expected;
    };
    for (std::size_t at = text.find('{'); at != std::string_view::npos;
         at = text.find('{', at + 1)) {
        if (std::ranges::equal(text.substr(at, pattern.size()), pattern, fits)) {
            return true;
        }
    }
    return false;
}

/// What the rows show, in the places of `layouts`.
struct Evidence {
    std::array<std::size_t, layouts.size()> rows = {};
    std::array<std::size_t, layouts.size()> addresses = {};
    std::size_t identifiers = 0; ///< of rows that are long enough for a login
};

bool fits(const PositionalLayout& layout, std::size_t cells) noexcept {
    return cells == layout.leastCells || (layout.mayHaveMore && cells > layout.leastCells);
}

void note(const CSVRow& row, Evidence& evidence) {
    constexpr std::size_t leastCells = 5;

    if (row.cells.size() >= leastCells && hasIdentifier(row.text)) {
        ++evidence.identifiers;
        return;
    }
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        const std::size_t address = layouts[i].address;
        if (fits(layouts[i], row.cells.size())) {
            ++evidence.rows[i];
            // An address in the next cell as well would be of a layout of its own.
            if (isAddress(row.cells[address]) && !isAddress(row.cells[address + 1])) {
                ++evidence.addresses[i];
            }
        }
    }
}

/// Whether a first row with names of columns puts the password elsewhere than a layout does.
bool contradicts(const CSVRow& first, const PositionalLayout& layout) {
    const auto isPassword = [](std::string_view cell) {
        return std::ranges::equal(unquoted(cell), std::string_view("password"), sameLetter);
    };
    const auto found = std::ranges::find_if(first.cells, isPassword);
    return found != first.cells.end() &&
           static_cast<std::size_t>(first.cells.end() - found) != layout.afterSecret + 1;
}

Detection detected(const PositionalLayout& layout, Confidence confidence, std::string_view reason) {
    return {.layout = std::string(layout.layout),
            .source = layout.source,
            .confidence = confidence,
            .reason = std::string(reason),
            .advice = {}};
}

} // namespace

std::optional<Detection> detectPositions(std::string_view beginning) {
    CSVRows rows(beginning);
    CSVRow first;
    if (!rows.next(first)) {
        return unknown("there is nothing but blanks in it");
    }
    Evidence evidence;
    note(first, evidence);
    for (CSVRow row; rows.next(row);) {
        note(row, evidence);
    }
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        const PositionalLayout& layout = layouts[i];
        if (fits(layout, first.cells.size()) || layout.mayHaveMore) {
            if (evidence.addresses[i] > 0 && evidence.addresses[i] * 2 >= evidence.rows[i] &&
                !contradicts(first, layout)) {
                return detected(layout, layout.confidence, layout.reason);
            }
        }
    }
    if (evidence.identifiers > 0) {
        return detected(layouts.front(), Confidence::possible, "rows with identifiers in braces");
    }
    return std::nullopt;
}

} // namespace Rellinor::Host
