#include "Private/Proxies/SQLiteGuard.hpp"

#include <algorithm>
#include <new>
#include <string_view>

#include <sqlite3.h>

namespace Rellinor {

namespace {

// An honest row takes about 20 steps and 14 bytes at least, and looks into few pages besides its
// own. What is there besides the rows, such as the schema, is read on credit.
constexpr std::int64_t stepsForByte = 16;
constexpr std::int64_t pagesForByte = 1;
constexpr std::int64_t credit = 1 << 20;
constexpr int stepsBetweenChecks = 1 << 12;

// A byte that is not UTF-8 is repaired to three.
constexpr std::int64_t bytesForByte = 3;

/// A text as a literal of SQL.
std::string literal(std::string_view text) {
    std::string quoted = "'";
    for (const char character : text) {
        quoted.append(character == '\'' ? 2 : 1, character);
    }
    return quoted += '\'';
}

/// Whether a query comes to its end and all of its rows are such.
///
/// @throws std::bad_alloc
bool areAll(::sqlite3& connection, const std::string& query, auto isSuch) {
    ::sqlite3_stmt* statement = nullptr;
    int code = ::sqlite3_prepare_v2(&connection, query.c_str(), -1, &statement, nullptr);
    bool areSuch = true;
    if (code == SQLITE_OK) {
        while (::sqlite3_step(statement) == SQLITE_ROW) {
            areSuch = areSuch && isSuch(statement);
        }
        code = ::sqlite3_finalize(statement); // what the last step gave
    }
    if (code == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    return code == SQLITE_OK && areSuch;
}

/// Whether a table has pages of its own: a virtual one has none.
bool hasPages(::sqlite3& connection, const std::string& table) {
    return areAll(connection,
                  "SELECT rootpage FROM main.sqlite_master WHERE type = 'table' AND name = " +
                      literal(table) + " COLLATE NOCASE",
                  [](::sqlite3_stmt* row) { return ::sqlite3_column_int(row, 0) != 0; });
}

/// Whether columns of a table stand in it, and are not computed when they are read.
bool areStored(::sqlite3& connection, const std::string& table,
               const std::vector<std::string>& columns) {
    constexpr int name = 1;
    constexpr int kind = 6;
    constexpr int computed = 2;

    return areAll(
        connection, "PRAGMA main.table_xinfo(" + literal(table) + ")", [&](::sqlite3_stmt* column) {
            const void* const text = ::sqlite3_column_text(column, name);
            return ::sqlite3_column_int(column, kind) != computed ||
                   (text != nullptr &&
                    std::ranges::find(columns, static_cast<const char*>(text)) == columns.end());
        });
}

/// How many pages were looked into since this was last asked.
std::int64_t pagesReadOf(::sqlite3& connection) noexcept {
    std::int64_t count = 0;
    for (const int status : {SQLITE_DBSTATUS_CACHE_HIT, SQLITE_DBSTATUS_CACHE_MISS}) {
        int pages = 0;
        int ignored = 0;
        (void)::sqlite3_db_status(&connection, status, &pages, &ignored, 1);
        count += pages;
    }
    return count;
}

} // namespace

SQLiteGuard::SQLiteGuard(::sqlite3& connection, std::int64_t size) noexcept
    : _connection(connection), _size(size), _stepsLeft(credit), _pagesLeft(credit),
      _bytesLeft(size * bytesForByte) {
    const auto set = [&](int option, int value) {
        // An older SQLite does without those that it does not know.
        (void)::sqlite3_db_config(&connection, option, value, nullptr); // NOLINT(*-vararg)
    };
    set(SQLITE_DBCONFIG_DEFENSIVE, 1);
    set(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    set(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    set(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    // Nothing is to be written, not even what stands in a write-ahead log.
    set(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1);
    ::sqlite3_progress_handler(&connection, stepsBetweenChecks, &takesSteps, this);
    (void)::sqlite3_set_authorizer(&connection, &readsTable, this);
}

SQLiteGuard::~SQLiteGuard() {
    (void)::sqlite3_set_authorizer(&_connection, nullptr, nullptr);
    ::sqlite3_progress_handler(&_connection, 0, nullptr, nullptr);
}

bool SQLiteGuard::allowsStatement() {
    (void)::sqlite3_set_authorizer(&_connection, nullptr, nullptr);
    if (_lacksMemory) {
        throw std::bad_alloc();
    }
    for (const auto& [table, columns] : _columnsRead) {
        if (!hasPages(_connection, table) || !areStored(_connection, table, columns)) {
            return false;
        }
    }
    _stepsLeft += _size * stepsForByte;
    _pagesLeft += _size * pagesForByte;
    return true;
}

bool SQLiteGuard::allowsRow(std::span<const SQLiteValue> values) noexcept {
    constexpr std::span<const char> noBytes;

    for (const SQLiteValue& value : values) {
        _bytesLeft -= static_cast<std::int64_t>(value.text().value_or("").size());
        _bytesLeft -= static_cast<std::int64_t>(value.blob().value_or(noBytes).size());
    }
    return _bytesLeft >= 0;
}

int SQLiteGuard::readsTable(void* guard, int action, const char* table, const char* column,
                            const char* /*schema*/, const char* view) noexcept {
    if (view != nullptr) {
        return SQLITE_DENY;
    }
    if (action != SQLITE_READ || table == nullptr || column == nullptr) {
        return SQLITE_OK;
    }
    auto& self = *static_cast<SQLiteGuard*>(guard);
    try {
        self._columnsRead[table].emplace_back(column);
    } catch (const std::bad_alloc&) {
        self._lacksMemory = true;
    }
    return SQLITE_OK;
}

int SQLiteGuard::takesSteps(void* guard) noexcept {
    auto& self = *static_cast<SQLiteGuard*>(guard);
    self._stepsLeft -= stepsBetweenChecks;
    self._pagesLeft -= pagesReadOf(self._connection);
    return self._stepsLeft < 0 || self._pagesLeft < 0 ? 1 : 0;
}

} // namespace Rellinor
