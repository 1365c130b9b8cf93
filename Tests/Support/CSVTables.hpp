#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Private/Proxies/CSVDialect.hpp"
#include "Private/Proxies/CSVTable.hpp"
#include "Tests/Support/CSV.hpp"

namespace Rellinor::Tests {

/// A row of a table, copied out.
struct TableRow {
    Row cells;
    std::size_t position = 0;
    std::vector<CSVDamage> damage; // in the order of its values

    [[nodiscard]] bool operator==(const TableRow&) const = default;
};

/// A table, copied out.
struct Table {
    Row header;
    std::vector<TableRow> rows;

    [[nodiscard]] bool operator==(const Table&) const = default;
};

/// What a table gives. The text is read in a heap buffer of exactly its size. Throws if the line
/// ends before a row are not as many as in the text as it was, or if the header is another one
/// where it is read alone.
[[nodiscard]] Table tableOf(std::string_view text, const CSVDialect& dialect = {});

/// The same in words, for messages.
[[nodiscard]] std::string described(const Table& table);

} // namespace Rellinor::Tests
