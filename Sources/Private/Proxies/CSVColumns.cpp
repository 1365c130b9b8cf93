#include "Private/Proxies/CSVColumns.hpp"

#include <algorithm>

#include "Private/Extensions/String.hpp"

namespace Rellinor {

CSVColumns CSVColumns::fromHeaderRow(std::span<const CSVHeader> expectedHeaders,
                                     std::span<const std::optional<std::size_t>> positions) {
    CSVColumns columns;
    for (std::size_t index = 0; index < expectedHeaders.size(); ++index) {
        if (!positions[index]) {
            throw TextError("File does not contain expected headers");
        }
        columns.add({.position = *positions[index], .key = expectedHeaders[index].key}, "");
    }
    std::ranges::sort(columns._columns, {}, &Column::position);
    return columns;
}

CSVColumns CSVColumns::byPosition(std::span<const CSVHeader> expectedHeaders,
                                  std::size_t numberOfFields) {
    if (numberOfFields != expectedHeaders.size()) {
        throw TextError("The number of fields must be equal to the number of headers for a csv "
                        "without headers");
    }
    CSVColumns columns;
    for (std::size_t index = 0; index < expectedHeaders.size(); ++index) {
        columns.add({.position = index, .key = expectedHeaders[index].key}, {});
    }
    return columns;
}

void CSVColumns::add(Column column, std::string_view missingCell) {
    _columns.push_back(column);
    _emptyRow.resize(std::max(_emptyRow.size(), column.key + 1));
    _emptyRow[column.key] = missingCell;
}

} // namespace Rellinor
