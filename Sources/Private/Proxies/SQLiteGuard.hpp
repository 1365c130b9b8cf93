#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "Private/Proxies/SQLiteDearFunctions.hpp"
#include "Private/Proxies/SQLiteMeter.hpp"
#include "Private/Proxies/SQLiteProgram.hpp"
#include "Private/Proxies/SQLiteSchema.hpp"
#include "Private/Proxies/SQLiteValue.hpp"

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor {

/// Watches over a connection to a database that anybody may have made. A database is read if
/// SQLite needs no more time, memory and stack than its size explains, whatever is in it:
///
/// - A schema is plain if nothing in it computes, as in those of browsers. Then only knotted pages
///   can do harm, so that rows never end: steps, pages and bytes are counted.
/// - Any other schema is looked through before SQLite does what it says. A query that computes,
///   since it reads a view or a computed column, has a limited time; the longer its program, the
///   shorter are the values that it may work on.
///
/// Virtual tables are not read, since they are code that believes what the database says. Triggers
/// do not fire, and nothing that the schema says is trusted.
class SQLiteGuard {
public:
    /// Begins to watch over an open connection, which lives longer.
    ///
    /// @param size  how many bytes the database has, with what lies beside it
    SQLiteGuard(::sqlite3& connection, std::int64_t size) noexcept;
    ~SQLiteGuard() = default;
    SQLiteGuard(const SQLiteGuard&) = delete;
    SQLiteGuard& operator=(const SQLiteGuard&) = delete;

    /// Reads the schema. If that fails or is refused, no statement may be prepared.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool allowsSchema();

    /// Whether a query may be prepared. Then it may be run too, up to what it may cost.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool allowsStatement(std::string_view query);

    /// Whether the database has room for another row with these values.
    [[nodiscard]] bool allowsRow(std::span<const SQLiteValue> values) noexcept;

    /// Whether something was not allowed, or was broken off.
    [[nodiscard]] bool hasRefused() const noexcept;

    /// Lets the statement be run once more.
    void allowSecondTry() noexcept { _meter.restart(); }

    /// Fails if it was for lack of memory that SQLite said there is none. It also says so of a
    /// damaged cell that claims 4 GiB, and of a program with more instructions than it may have.
    ///
    /// @param codeOfSecondTry  SQLite's, of the same done again
    /// @throws std::bad_alloc  it does not say so again, or there is not what it needs
    void requireMemory(int codeOfSecondTry) const;

private:
    /// Reads the schema, unless that is done, within the limits of the connection. Gives SQLite's
    /// code.
    [[nodiscard]] int readSchema() const;
    [[nodiscard]] bool hasViews() const;

    /// Looks through the texts of a schema that is not plain.
    [[nodiscard]] bool allowsTexts();

    /// Looks at the program of a query, and trusts SQLite's own functions from now on if the
    /// program needs that. Gives SQLite's code.
    [[nodiscard]] int readTrustedProgram(std::string_view query, SQLiteProgram& program) const;

    /// Limits what a query may cost.
    void limit(const SQLiteProgram& program) noexcept;

    /// Is false.
    bool refuse() noexcept;

    ::sqlite3& _connection;
    std::int64_t _size;
    std::int64_t _longestValue;
    std::int64_t _bytesLeft;
    std::int64_t _bytesForValue = 0; // besides those of a text or blob
    SQLiteMeter _meter;
    std::optional<SQLiteSchema> _schema; // if it is not plain
    std::optional<SQLiteDearFunctions> _dearFunctions;
    bool _hasRefused = false;
};

} // namespace Rellinor
