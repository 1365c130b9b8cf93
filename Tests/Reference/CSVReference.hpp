#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Tests/Support/CSV.hpp"

namespace Rellinor::Tests {

/// The CSV dialect as it is told, step by step: slow, with its counting of quotes over and over,
/// but easy to compare with the words. Serves to check the fast reader.
[[nodiscard]] Rows referenceRows(std::string_view text);

/// The dictionaries that the rows of a file give for some expected headers; absent where that
/// fails.
[[nodiscard]] std::optional<std::vector<Dictionary>>
referenceKeyedRecords(const Rows& rows, const std::vector<std::string>& expectedHeaders);

} // namespace Rellinor::Tests
