#include "Tests/Support/CSV.hpp"

#include <algorithm>
#include <memory>

#include "Private/Proxies/CSVFileProxy.hpp"

namespace Rellinor::Tests {

Rows rowsOf(CSVCursor cursor) {
    Rows rows;
    while (cursor.nextRow()) {
        Row& row = rows.emplace_back();
        while (const auto cell = cursor.nextCell()) {
            row.emplace_back(*cell);
        }
    }
    return rows;
}

Rows rows(std::string_view text) {
    // Exactly as large as the text, so that a sanitizer sees a single byte read behind it.
    const auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::ranges::copy(text, copy.get());
    return rowsOf(CSVCursor(CSVFileProxy::parseFileData({copy.get(), text.size()})));
}

std::vector<Dictionary> dictionariesOf(CSVKeyedRecords records) {
    std::vector<Dictionary> dictionaries;
    for (const CSVRecord& record : records) {
        Dictionary& dictionary = dictionaries.emplace_back();
        for (const Column column : {Column::a, Column::b, Column::c, Column::d}) {
            if (const auto cell = record[column]) {
                dictionary[std::string(rawValue(column))] = *cell;
            }
        }
    }
    return dictionaries;
}

} // namespace Rellinor::Tests
