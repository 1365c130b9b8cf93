#include "Host/Inspection/CSVHeader.hpp"

#include <algorithm>
#include <string>

#include "Host/Counted.hpp"
#include "Host/Inspection/CSVInspection.hpp"
#include "Host/Letters.hpp"
#include "Host/Listed.hpp"

namespace Rellinor::Host {

namespace {

using Names = std::vector<std::string_view>;

bool has(const CSVRow& row, std::string_view name) {
    return std::ranges::any_of(row.cells,
                               [&](std::string_view cell) { return unquoted(cell) == name; });
}

/// Whether a row has the name in any spelling: without regard to case, blanks and quotes.
bool hasAlike(const CSVRow& row, std::string_view name) {
    return std::ranges::any_of(row.cells, [&](std::string_view cell) {
        constexpr std::string_view around = " \t\r\"'";
        const std::size_t begin = std::min(cell.find_first_not_of(around), cell.size());
        const std::size_t end = cell.find_last_not_of(around) + 1;
        return std::ranges::equal(cell.substr(begin, std::max(end, begin) - begin), name,
                                  sameLetter);
    });
}

/// The names among `names` that a row has, or those that it lacks.
Names having(const CSVRow& row, std::span<const std::string_view> names, bool wanted) {
    Names chosen;
    std::ranges::copy_if(names, std::back_inserter(chosen),
                         [&](std::string_view name) { return has(row, name) == wanted; });
    return chosen;
}

std::ptrdiff_t countAlike(const CSVRow& row, const CSVLayout& layout) {
    return std::ranges::count_if(layout.columns,
                                 [&](std::string_view name) { return hasAlike(row, name); });
}

/// Such as `"extra", "grouping" and "fav"`.
std::string quoted(std::span<const std::string_view> names) {
    return listed(names, "\"");
}

/// Such as "a LastPass export has 7".
std::string expectedNumbers(std::span<const CSVLayout> layouts) {
    std::string text;
    for (const CSVLayout& layout : layouts) {
        text += text.empty() ? "a " : ", and a ";
        text += layout.product;
        text += " export has ";
        text += std::to_string(layout.columns.size());
    }
    return text;
}

/// What is wrong with a number of columns that no layout has.
std::string wrongNumber(const CSVRow& row, std::span<const CSVLayout> layouts) {
    const auto fewest = std::ranges::min(
        layouts, {}, [](const CSVLayout& layout) { return layout.columns.size(); });
    if (std::string separator = otherSeparator(row, fewest.columns.size()); !separator.empty()) {
        return separator;
    }
    std::string text = counted(row.numberOfCells, "column") + ", where " + expectedNumbers(layouts);
    for (const CSVLayout& layout : layouts) {
        const Names missing = having(row, layout.columns, false);
        const Names later = having(row, layout.laterColumns, true);
        if (missing.empty() && row.numberOfCells == layout.columns.size() + later.size()) {
            return text + ": take out " + quoted(later) + " and try again";
        }
        if (missing.empty()) {
            return text + ": take out all but " + quoted(layout.columns);
        }
        if (row.numberOfCells + missing.size() == layout.columns.size()) {
            return text + ": " + quoted(missing) + (missing.size() == 1 ? " is" : " are") +
                   " missing";
        }
    }
    return text;
}

/// What is wrong with a first row that has as many cells as `layout`, but not its names.
std::string wrongNames(const CSVRow& row, const CSVLayout& layout,
                       std::span<const CSVLayout> layouts) {
    constexpr std::string_view consequence = "every row is read by position, this one included";
    constexpr std::ptrdiff_t enough = 3; // to be no coincidence

    for (const CSVLayout& other : layouts) {
        if (other.product != layout.product && countAlike(row, other) >= enough) {
            return "column names of " + std::string(other.product) + ", but as many columns as " +
                   std::string(layout.product) + " has: " + std::string(consequence) +
                   ", and texts arrive in the wrong places";
        }
    }
    if (countAlike(row, layout) == 0) {
        return "no header: " + std::string(consequence);
    }
    return "the header lacks " + quoted(having(row, layout.columns, false)) +
           " in just this spelling, so that " + std::string(consequence);
}

} // namespace

CSVHeader::CSVHeader(const CSVRow& firstRow, const CSVLayout& layout) {
    for (const std::string_view name : layout.columns) {
        const auto cell = std::ranges::find(firstRow.cells, name, unquoted);
        _positions.push_back(static_cast<std::size_t>(cell - firstRow.cells.begin()));
        _isThere = _isThere && cell != firstRow.cells.end();
    }
    if (!_isThere) {
        for (std::size_t column = 0; column < _positions.size(); ++column) {
            _positions[column] = column;
        }
    }
}

std::optional<std::string_view> CSVHeader::cell(const CSVRow& row,
                                                std::size_t column) const noexcept {
    const std::size_t position = _positions[column];
    if (position < row.cells.size()) {
        return row.cells[position];
    }
    return _isThere ? std::optional<std::string_view>("") : std::nullopt;
}

void reportHeader(const CSVRow& firstRow, std::span<const CSVLayout> layouts,
                  Inspection& inspection) {
    const auto layout = std::ranges::find(
        layouts, firstRow.numberOfCells, [](const CSVLayout& each) { return each.columns.size(); });
    if (layout == layouts.end()) {
        inspection.wrong.push_back({wrongNumber(firstRow, layouts), {firstRow.line}});
    } else if (!CSVHeader(firstRow, *layout).isThere()) {
        inspection.wrong.push_back({wrongNames(firstRow, *layout, layouts), {firstRow.line}});
    }
}

} // namespace Rellinor::Host
