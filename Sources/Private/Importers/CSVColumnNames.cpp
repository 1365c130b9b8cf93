#include "Private/Importers/CSVColumnNames.hpp"

#include <algorithm>
#include <utility>

#include "Private/Proxies/CSVHeaderRow.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

/// The header in front of a text; empty if there is none.
CSVColumnNames headerOf(Beginning beginning, char separator, bool isAnnounced) {
    CSVBeginning rows(beginning, separator);
    CSVCells cells;
    if (!rows.next(cells)) {
        cells.clear();
    }
    // The imports of the first door know commas and line feeds.
    const bool isPlain = separator == ',' && !isAnnounced && !rows.hasCarriageReturnsOnly();
    return {std::move(cells), separator, isPlain};
}

} // namespace

CSVColumnNames::CSVColumnNames(CSVCells cells, char separator, bool isPlain)
    : _asWritten(std::move(cells)), _separator(separator), _isPlain(isPlain) {
    for (const std::string_view cell : _asWritten) {
        if (const std::string_view name = withoutBlanksAround(cell); !name.empty()) {
            _names.push_back(name);
        }
    }
}

bool CSVColumnNames::has(std::string_view name) const noexcept {
    return std::ranges::any_of(
        _names, [&](std::string_view other) { return sameIgnoringCase(name, other); });
}

bool CSVColumnNames::hasAll(ColumnNames names) const noexcept {
    return std::ranges::all_of(names, [&](std::string_view name) { return has(name); });
}

bool CSVColumnNames::isExactly(ColumnNames names) const noexcept {
    return _isPlain && _asWritten.size() == names.size() &&
           std::ranges::all_of(names, [&](std::string_view name) {
               return std::ranges::find(_asWritten, name) != _asWritten.end();
           });
}

bool CSVColumnNames::fits(const CSVLayout& layout) const noexcept {
    if (layout.layout != Layout::genericCSV) {
        return hasAll(layout.required);
    }
    const auto names = [&](CSVField field) {
        return std::ranges::any_of(layout.columns, [&](const CSVColumn& column) {
            return column.field == field && has(column.name);
        });
    };
    // An address is no name: that is a row of a file without a header.
    const bool hasAddress =
        std::ranges::any_of(_names, [](std::string_view name) { return name.contains("://"); });
    return !hasAddress && names(CSVField::password) &&
           (names(CSVField::username) || names(CSVField::url) || names(CSVField::title));
}

Confidence CSVColumnNames::confidenceIn(const CSVLayout& layout) const noexcept {
    if (!fits(layout)) {
        return Confidence::none;
    }
    if (layout.layout == Layout::genericCSV) {
        return Confidence::likely;
    }
    if (layout.others == OtherColumns::any) {
        return Confidence::certain;
    }
    const std::size_t others = numberOfOthers(layout);
    if (layout.others == OtherColumns::none) {
        return others == 0 ? Confidence::likely : Confidence::none;
    }
    if (others == 0) {
        return Confidence::certain;
    }
    return others * 2 < _names.size() ? Confidence::likely : Confidence::none;
}

/// How many of the columns have no name that the layout knows.
std::size_t CSVColumnNames::numberOfOthers(const CSVLayout& layout) const noexcept {
    const auto isOther = [&](std::string_view name) {
        const bool isKnown = std::ranges::any_of(layout.columns, [&](const CSVColumn& column) {
            return sameIgnoringCase(column.name, name);
        });
        return !isKnown && (layout.otherColumn == nullptr || !layout.otherColumn(name));
    };
    return static_cast<std::size_t>(std::ranges::count_if(_names, isOther));
}

std::vector<CSVColumnNames> headersOf(Beginning beginning) {
    if (const auto separator = namedSeparator(beginning.text)) {
        beginning.text.remove_prefix(
            std::min(beginning.text.find_first_of("\r\n"), beginning.text.size()));
        return {headerOf(beginning, *separator, true)};
    }
    std::vector<CSVColumnNames> headers;
    for (const char separator : {',', ';', '\t'}) {
        headers.push_back(headerOf(beginning, separator, false));
    }
    return headers;
}

} // namespace Rellinor
