#pragma once

#include <cstdint>

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor {

/// How the reading of a database ended.
enum class SQLiteEnding : std::uint8_t {
    complete,     ///< there are no more rows
    notOpened,    ///< there is no file that may be opened
    notADatabase, ///< the file is something else
    notPrepared,  ///< the database has no such table or column
    locked,       ///< another connection keeps the database to itself
    damaged,      ///< an error came before the last row
    refused,      ///< the database would cost more than its size explains, or do harm
};

/// What a code of SQLite's says, the last one that a connection gave.
///
/// @param otherwise  for a code that says no more than that there is an error
[[nodiscard]] SQLiteEnding endingOf(::sqlite3& connection, int code,
                                    SQLiteEnding otherwise) noexcept;

} // namespace Rellinor
