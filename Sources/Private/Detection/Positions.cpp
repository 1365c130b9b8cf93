#include <algorithm>
#include <array>

#include "Private/Detection/CSVBeginning.hpp"
#include "Private/Detection/Recognisers.hpp"
#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

/// How many rows are looked at.
constexpr std::size_t mostRows = 100;

constexpr bool isLetter(char character) noexcept {
    return lowerCase(character) >= 'a' && lowerCase(character) <= 'z';
}

bool isAddress(std::string_view cell) noexcept {
    const std::size_t scheme = cell.find("://");
    return cell.starts_with("www.") || (scheme != std::string_view::npos && scheme > 0 &&
                                        std::ranges::all_of(cell.substr(0, scheme), isLetter));
}

/// Whether a cell is, or has among its words, what columns with a login's parts are called.
bool namesColumn(std::string_view cell) noexcept {
    constexpr std::array<std::string_view, 11> words = {"url",  "uri",      "website", "login",
                                                        "user", "username", "email",   "password",
                                                        "pwd",  "pass",     "title"};
    const auto isUsual = [&](std::string_view word) {
        return std::ranges::any_of(
            words, [&](std::string_view usual) { return sameIgnoringCase(usual, word); });
    };
    for (;;) {
        const std::size_t end = std::min(cell.find_first_of(" _-"), cell.size());
        if (isUsual(cell.substr(0, end))) {
            return true;
        }
        if (end == cell.size()) {
            return false;
        }
        cell.remove_prefix(end + 1);
    }
}

bool isHeader(const CSVCells& row) noexcept {
    return std::ranges::any_of(row, namesColumn) && std::ranges::none_of(row, isAddress);
}

/// Whether a row holds an identifier in braces, as the old files of Dashlane do for documents.
bool hasIdentifier(const CSVCells& row) noexcept {
    return std::ranges::any_of(row, [](std::string_view cell) {
        return cell.contains('{') && firstIdentifier(cell).has_value();
    });
}

/// Title, pairs of label and value, note.
bool isEnpass(const CSVCells& row) noexcept {
    for (std::size_t label = 1; label + 1 < row.size(); label += 2) {
        if (namesColumn(row[label]) && !namesColumn(row[label + 1])) {
            return true;
        }
    }
    return false;
}

/// Title, address, user names, password, note. An address in the next cell as well would be of a
/// layout of its own.
bool isDashlane(const CSVCells& row) noexcept {
    return isAddress(row[1]) && !isAddress(row[2]);
}

/// Folder, title, user name, password, address, note, shared folder, and pairs.
bool isKeeper(const CSVCells& row) noexcept {
    return isAddress(row[4]) && !isAddress(row[1]);
}

struct Positional {
    Layout layout;
    std::string_view product;
    std::string_view evidence;
    std::optional<ImportSource> source;
    std::size_t fewestCells; ///< of a login; shorter rows tell nothing
    bool (*fits)(const CSVCells&) noexcept;
};

constexpr std::array<Positional, 3> positionals = {{
    {.layout = Layout::enpassCSV,
     .product = "Enpass",
     .evidence = "rows of labels and values",
     .source = std::nullopt,
     .fewestCells = 3,
     .fits = isEnpass},
    {.layout = Layout::dashlanePositionalCSV,
     .product = "Dashlane",
     .evidence = "rows of five cells or more, an address in the second or an identifier in braces",
     .source = ImportSource::dashlane,
     .fewestCells = 5,
     .fits = isDashlane},
    {.layout = Layout::keeperCSV,
     .product = "Keeper",
     .evidence = "rows of seven cells or more, an address in the fifth",
     .source = std::nullopt,
     .fewestCells = 7,
     .fits = isKeeper},
}};

/// What the rows show of a layout.
struct Evidence {
    std::size_t rows = 0; ///< that are long enough
    std::size_t fitting = 0;

    [[nodiscard]] bool isStrong() const noexcept { return fitting > 0 && fitting * 2 >= rows; }
};

Detection possible(const Positional& positional) noexcept {
    Detection detection;
    detection.layout = positional.layout;
    detection.confidence = Confidence::possible;
    detection.source = positional.source;
    detection.product = positional.product;
    detection.evidence = positional.evidence;
    return detection;
}

} // namespace

std::optional<Detection> detectPositions(Beginning beginning) {
    CSVBeginning rows(beginning, ',');
    CSVCells row;
    std::array<Evidence, positionals.size()> evidence = {};
    for (std::size_t count = 0; count < mostRows && rows.next(row); ++count) {
        if (count == 0 && isHeader(row)) {
            return std::nullopt;
        }
        const bool isDocument = hasIdentifier(row);
        for (std::size_t i = 0; i < positionals.size(); ++i) {
            const Positional& positional = positionals[i];
            const bool isOfDashlane = positional.layout == Layout::dashlanePositionalCSV;
            if (row.size() >= positional.fewestCells) {
                const bool fits = isDocument ? isOfDashlane : positional.fits(row);
                evidence[i].rows += 1;
                evidence[i].fitting += fits ? 1 : 0;
            }
        }
    }
    for (std::size_t i = 0; i < positionals.size(); ++i) {
        if (evidence[i].isStrong()) {
            return possible(positionals[i]);
        }
    }
    return std::nullopt;
}

} // namespace Rellinor
