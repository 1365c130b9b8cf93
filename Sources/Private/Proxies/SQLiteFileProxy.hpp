#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/SQLiteEnding.hpp"
#include "Private/Proxies/SQLiteFileProxyType.hpp"
#include "Private/Proxies/SQLiteSnapshot.hpp"

struct sqlite3;      // NOLINT(readability-identifier-naming): the C library's own
struct sqlite3_stmt; // NOLINT(readability-identifier-naming)

namespace Rellinor {

class SQLiteGuard;

/// What becomes of a database's values. What is not UTF-8 in a text is replaced by U+FFFD, and NULL
/// is an absent value.
enum class SQLiteFaithfulness : std::uint8_t {
    /// An integer keeps its low 32 bits, a floating-point number the precision of 32 bits; a text
    /// ends at its first NUL; an empty blob is an absent value.
    narrowed,
    whole,
};

/// Reads SQLite databases. A database that costs more than its size explains is not read
/// (`SQLiteGuard`). Of a damaged one the rows before the damage are given.
///
/// A database in its place is read through the C library's plain calls: the file is opened for
/// reading and writing, and created empty if there is none. Nothing waits for a lock. Each select
/// opens the file anew and leaves its statement behind: the library then keeps the connection to
/// the end of the process, but no lock that keeps anybody from reading or writing. Of a database
/// with a write-ahead log nobody can change that mode meanwhile.
///
/// Of a snapshot nothing stays behind.
class SQLiteFileProxy final : public SQLiteFileProxyType {
public:
    /// Opens nothing yet.
    ///
    /// @param pathToDatabase  absolute
    /// @param memory          receives texts and bytes; outlives the rows
    SQLiteFileProxy(std::string pathToDatabase, ImportMemory& memory)
        : _pathToDatabase(std::move(pathToDatabase)), _memory(memory) {}

    /// @param snapshot  outlives this
    /// @param memory    receives texts and bytes; outlives the rows
    SQLiteFileProxy(SQLiteSnapshot& snapshot, SQLiteFaithfulness faithfulness, ImportMemory& memory)
        : _snapshot(&snapshot), _faithfulness(faithfulness), _memory(memory) {}

    // Kept out of line: leak checkers know by this name what is left behind on purpose.
    [[nodiscard, gnu::noinline]] SQLiteRows select(std::string_view query) override;

    /// How the last select ended.
    [[nodiscard]] SQLiteEnding ending() const noexcept { return _ending; }

private:
    [[nodiscard]] SQLiteEnding readInPlace(std::string_view query, SQLiteRows& rows);
    [[nodiscard]] SQLiteEnding readSnapshot(std::string_view query, SQLiteRows& rows);
    [[nodiscard]] SQLiteEnding read(std::string_view query, std::int64_t size, SQLiteRows& rows);
    [[nodiscard]] SQLiteEnding read(std::string_view query, SQLiteGuard& guard, SQLiteRows& rows);

    /// Has the connection, which may stay to the end of the process, keep as little of the file as
    /// it can, and nothing of it in other files.
    void keepLittle() const;

    /// What is prepared of a query.
    [[nodiscard]] std::string_view preparedPartOf(std::string_view query) const noexcept;

    [[nodiscard]] bool prepareStatement(std::string_view query,
                                        ::sqlite3_stmt*& statement) const noexcept;

    /// Appends all rows of a statement. Gives SQLite's code for the end.
    [[nodiscard]] int step(std::string_view query, ::sqlite3_stmt* statement, SQLiteGuard& guard,
                           SQLiteRows& rows);

    /// SQLite's code for a row of the query, counted from 0, on a statement of its own.
    [[nodiscard]] int codeAtRow(std::size_t row, std::string_view query);

    /// Appends the row on which the statement stands.
    void mapColumns(::sqlite3_stmt* statement, SQLiteRows& rows);

    ::sqlite3* _dbp = nullptr; // of the last select; keeps its value when the connection is closed
    std::string _pathToDatabase;
    SQLiteSnapshot* _snapshot = nullptr; // that is read instead
    SQLiteFaithfulness _faithfulness = SQLiteFaithfulness::narrowed;
    ImportMemory& _memory;
    std::vector<SQLiteValue> _row; // that is being read
    SQLiteEnding _ending = SQLiteEnding::notOpened;
};

} // namespace Rellinor
