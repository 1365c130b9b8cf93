#pragma once

#include <string_view>

#include "Tests/Support/CSVTables.hpp"

namespace Rellinor::Tests {

/// The table that a CSV text gives, by the rules as they are told, one after the other: each row is
/// read from its beginning again whenever one of its quotes turns out to be a letter.
[[nodiscard]] Table referenceTable(std::string_view text, const CSVDialect& dialect = {});

} // namespace Rellinor::Tests
