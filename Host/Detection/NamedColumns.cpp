#include <algorithm>
#include <vector>

#include "Host/CSVRows.hpp"
#include "Host/Detection/CSVLayouts.hpp"
#include "Host/Detection/Header.hpp"
#include "Host/Detection/Recognisers.hpp"
#include "Host/Letters.hpp"
#include "Host/Listed.hpp"

namespace Rellinor::Host {

namespace {

bool has(const Header& header, std::string_view name) {
    return std::ranges::find(header, name) != header.end();
}

/// The same, in capitals or not.
bool hasInAnyCase(const Header& header, std::string_view name) {
    return std::ranges::any_of(
        header, [&](std::string_view cell) { return std::ranges::equal(cell, name, sameLetter); });
}

std::string columns(ColumnNames names) {
    return (names.size() == 1 ? "the column " : "the columns ") + listed(names);
}

/// Those of the names that are in the header.
std::vector<std::string_view> present(const Header& header, ColumnNames names) {
    std::vector<std::string_view> found;
    std::ranges::copy_if(names, std::back_inserter(found),
                         [&](std::string_view name) { return has(header, name); });
    return found;
}

std::optional<Detection> detectRead(const Header& header, const ReadLayout& layout) {
    if (header.size() != layout.columns.size() ||
        present(header, layout.columns).size() != layout.columns.size()) {
        return std::nullopt;
    }
    return Detection{.layout = std::string(layout.layout),
                     .source = layout.source,
                     .confidence = Confidence::certain,
                     .reason = columns(layout.columns),
                     .advice = {}};
}

/// What to do for an import as KeePass's.
std::string renaming(const OtherLayout& layout, std::size_t countOfColumns) {
    const ColumnNames targets = keePassColumns();
    std::vector<std::string_view> from;
    std::vector<std::string_view> to;
    std::vector<std::string_view> added;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        if (layout.renamed[i].empty()) {
            added.push_back(targets[i]);
            continue;
        }
        from.push_back(layout.renamed[i]);
        to.push_back(targets[i]);
    }
    if (from.empty()) {
        return "nothing of it can be imported";
    }
    std::string text = "to import it, ";
    if (countOfColumns > from.size()) {
        text += "keep only " + columns(from) + ", rename them to " + listed(to);
    } else {
        text += "rename " + columns(from) + " to " + listed(to);
    }
    if (!added.empty()) {
        text += added.size() == 1 ? ", add an empty column " : ", add empty columns ";
        text += listed(added);
    }
    return text + ", and use --source keePass";
}

std::optional<Detection> detectOther(const Header& header, const OtherLayout& layout) {
    const auto isThere = [&](std::string_view name) { return hasInAnyCase(header, name); };
    if (!std::ranges::all_of(layout.columns, isThere) ||
        (header.size() != layout.columns.size() && !layout.mayHaveMore)) {
        return std::nullopt;
    }
    return Detection{.layout = std::string(layout.layout),
                     .source = std::nullopt,
                     .confidence = layout.confidence,
                     .reason = columns(layout.columns),
                     .advice = renaming(layout, header.size())};
}

/// A header with a column more or less, or under another name, than an import takes.
std::optional<Detection> detectNearly(const Header& header, const ReadLayout& layout) {
    const std::size_t expected = layout.columns.size();
    std::vector<std::string_view> missing;
    std::ranges::copy_if(layout.columns, std::back_inserter(missing),
                         [&](std::string_view name) { return !hasInAnyCase(header, name); });
    if (missing.size() > 1) {
        return std::nullopt;
    }

    Detection detection;
    detection.layout = layout.layout;
    detection.nearly = layout.source;
    if (header.size() == expected) {
        detection.layout += " with other names of columns";
    } else {
        detection.layout += " with " + std::to_string(header.size()) + " columns instead of " +
                            std::to_string(expected);
    }

    std::vector<std::string_view> known = present(header, layout.columns);
    const std::vector<std::string_view> later = present(header, layout.later);
    if (known.size() == expected && known.size() + later.size() == header.size()) {
        known.insert(known.end(), later.begin(), later.end());
        detection.confidence = Confidence::certain;
        detection.reason = columns(known);
        detection.advice = "take " + columns(later) + " out";
        return detection;
    }
    detection.confidence = Confidence::likely;
    if (!missing.empty()) {
        detection.reason = "the column " + std::string(missing.front()) + " is missing";
    } else if (known.size() < expected) {
        detection.reason = "the names are written otherwise";
    } else {
        detection.reason = columns(layout.columns) + ", and others";
    }
    detection.advice = "its columns must be " + listed(layout.columns);
    return detection;
}

template <typename Layout>
std::optional<Detection> first(std::span<const Layout> layouts, const Header& header,
                               std::optional<Detection> (*detected)(const Header&, const Layout&)) {
    for (const Layout& layout : layouts) {
        if (auto found = detected(header, layout)) {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<Detection> detectHeader(const Header& header) {
    if (auto found = first(readLayouts(), header, detectRead)) {
        return found;
    }
    if (auto found = first(otherLayouts(), header, detectOther)) {
        return found;
    }
    return first(readLayouts(), header, detectNearly);
}

std::optional<Detection> detectNamedColumns(std::string_view beginning) {
    CSVRows rows(beginning);
    CSVRow row;
    if (!rows.next(row) || row.numberOfCells > CSVRows::mostCells) {
        return std::nullopt;
    }
    std::ranges::transform(row.cells, row.cells.begin(), unquoted);
    return detectHeader(row.cells);
}

} // namespace Rellinor::Host
