#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/SQLiteFileProxyType.hpp"

struct sqlite3;      // NOLINT(readability-identifier-naming): the C library's own
struct sqlite3_stmt; // NOLINT(readability-identifier-naming)

namespace Rellinor {

class SQLiteGuard;

/// Reads SQLite databases, through the C library's plain calls:
///
/// - the file is opened for reading and writing, and created empty if there is none;
/// - an integer keeps its low 32 bits, a floating-point number the precision of 32 bits;
/// - a text ends at its first NUL, and what is not UTF-8 in it is replaced by U+FFFD;
/// - NULL and an empty blob are absent values.
///
/// What an honest database has no use for is not read (`SQLiteGuard`). Nothing waits for a lock.
/// Each select opens the file anew and leaves its statement behind: the library then keeps the
/// connection to the end of the process, but no lock that keeps anybody from reading or writing. Of
/// a database with a write-ahead log nobody can change that mode meanwhile.
class SQLiteFileProxy final : public SQLiteFileProxyType {
public:
    /// Opens nothing yet.
    ///
    /// @param pathToDatabase  absolute
    /// @param memory          receives texts and bytes; outlives the rows
    SQLiteFileProxy(std::string pathToDatabase, ImportMemory& memory)
        : _pathToDatabase(std::move(pathToDatabase)), _memory(memory) {}

    // Kept out of line: leak checkers know by this name what is left behind on purpose.
    [[nodiscard, gnu::noinline]] SQLiteRows select(std::string_view query) override;

private:
    /// Has the connection, which stays to the end of the process, keep as little of the file as it
    /// can, and nothing of it in other files.
    void keepLittle() const noexcept;

    [[nodiscard]] bool prepareStatement(std::string_view query,
                                        ::sqlite3_stmt*& statement) const noexcept;

    /// Appends all rows of a statement.
    void step(::sqlite3_stmt* statement, SQLiteGuard& guard, SQLiteRows& rows);

    /// Appends the row on which the statement stands.
    void mapColumns(::sqlite3_stmt* statement, SQLiteRows& rows);

    ::sqlite3* _dbp = nullptr; // of the last select; keeps its value when the connection is closed
    std::string _pathToDatabase;
    ImportMemory& _memory;
    std::vector<SQLiteValue> _row; // that is being read
};

} // namespace Rellinor
