#pragma once

#include <cstddef>
#include <string>

#include "Tests/Support/Connection.hpp"

namespace Rellinor::Tests {

/// Makes a database "database" whose first table has inner pages that all lead to one and the same
/// page, level by level: its rows are there 11 times for one level, 121 for two, and soon more
/// often than anybody can read.
///
/// @param statements  make the table and fill it with no more than goes onto one page
/// @param levels      one at least
[[nodiscard]] std::string knottedDatabase(const TemporaryFolder& folder,
                                          const Statements& statements, std::size_t levels);

} // namespace Rellinor::Tests
