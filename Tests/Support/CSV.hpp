#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Private/Proxies/CSVCursor.hpp"
#include "Private/Proxies/CSVKeyedRecords.hpp"
#include "Private/Proxies/CSVRecord.hpp"

namespace Rellinor::Tests {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

/// All rows from where the cursor stands, copied out.
[[nodiscard]] Rows rowsOf(CSVCursor cursor);

/// The rows of a CSV text. The text is read in a heap buffer of exactly its size.
[[nodiscard]] Rows rows(std::string_view text);

/// Columns with one-letter names.
enum class Column : std::uint8_t { a, b, c, d };

[[nodiscard]] constexpr std::string_view rawValue(Column column) noexcept {
    constexpr std::string_view names = "abcd";
    return names.substr(static_cast<std::size_t>(column), 1);
}

/// A record as a plain dictionary: a column that it lacks is not in it.
using Dictionary = std::map<std::string, std::string>;

/// Data rows, copied out, with those of the columns a, b, c and d that they have.
[[nodiscard]] std::vector<Dictionary> dictionariesOf(CSVKeyedRecords records);

} // namespace Rellinor::Tests
