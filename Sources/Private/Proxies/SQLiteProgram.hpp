#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor {

/// What SQLite makes of a query.
struct SQLiteProgram {
    /// How many bytes the instructions look at for each byte of the longest value, if none runs
    /// twice: SQLite may run so many without asking whether to go on.
    std::int64_t weight = 0;

    /// Whether the instructions do nothing but read rows that stand in a table, and compare.
    bool isPlain = true;

    bool readsVirtualTable = false;

    std::set<std::string, std::less<>> functions; ///< that it calls, unless it is plain
};

/// Looks at the program of a query. Gives SQLite's code.
///
/// @throws std::bad_alloc  there is no memory but SQLite's
[[nodiscard]] int readProgram(::sqlite3& connection, std::string_view query,
                              SQLiteProgram& program);

} // namespace Rellinor
