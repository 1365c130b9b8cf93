#pragma once

#include <optional>
#include <string_view>

#include "Private/Importers/CSVItem.hpp"
#include "Private/Proxies/JSONDocument.hpp"

// Cells of CSV files that hold JSON.

namespace Rellinor {

/// The JSON that stands in a cell; absent if it is none.
///
/// @throws std::bad_alloc
[[nodiscard]] std::optional<JSONDocument> documentIn(const CSVEntry& cell, CSVItem& item);

/// Adds a cell as it stands, since it is not the JSON that it should be, and tells the reporter.
///
/// @throws std::bad_alloc
void addAsItStands(const CSVEntry& cell, CSVItem& item);

/// A text, a number in digits, or a truth value; empty for null. Empty for any other value too, and
/// the reporter is told of that.
///
/// @throws std::bad_alloc
[[nodiscard]] std::string_view textOf(const JSONValue& value, const CSVEntry& cell, CSVItem& item);

} // namespace Rellinor
