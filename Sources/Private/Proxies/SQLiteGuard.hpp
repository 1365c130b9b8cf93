#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "Private/Proxies/SQLiteValue.hpp"

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor {

/// Watches over a connection to a database that anybody may have made, so that reading it costs no
/// more than its size:
///
/// - views, virtual tables and columns that are computed as they are read are not read, triggers
///   do not fire, and nothing that the schema says is trusted;
/// - a schema that calls functions with arguments, or is far larger than any browser's, is not
///   read;
/// - a query that takes more steps, looks into more pages or gives more bytes than an honest file
///   of the size could make it is broken off: tables may be knotted so that their rows never end.
class SQLiteGuard {
public:
    /// Begins to watch over an open connection, which lives longer.
    ///
    /// @param size  how many bytes the database has, with what lies beside it
    SQLiteGuard(::sqlite3& connection, std::int64_t size) noexcept;
    ~SQLiteGuard();
    SQLiteGuard(const SQLiteGuard&) = delete;
    SQLiteGuard& operator=(const SQLiteGuard&) = delete;

    /// Reads the schema; whether it is such as a browser may have made. If not, no statement may be
    /// prepared.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool allowsSchema();

    /// Whether the statement that was prepared since reads plain tables alone. From now on the size
    /// of the file limits what it may cost.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool allowsStatement();

    /// Whether the file has room for another row with these values.
    [[nodiscard]] bool allowsRow(std::span<const SQLiteValue> values) noexcept;

private:
    /// From now on it is rows that are read, as many as the size of the database has room for.
    void allowRows();

    // What SQLite calls.
    static int readsTable(void* guard, int action, const char* table, const char* column,
                          const char* schema, const char* view) noexcept;
    static int takesSteps(void* guard) noexcept;

    ::sqlite3& _connection;
    std::int64_t _size;
    std::map<std::string, std::vector<std::string>> _columnsRead; // of each table
    bool _lacksMemory = false;                                    // for their names
    std::int64_t _stepsLeft;
    std::int64_t _pagesLeft;
    std::int64_t _bytesLeft;
};

} // namespace Rellinor
