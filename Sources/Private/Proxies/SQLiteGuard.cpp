#include "Private/Proxies/SQLiteGuard.hpp"

#include <algorithm>
#include <new>
#include <string_view>

#include <sqlite3.h>

namespace Rellinor {

namespace {

// A schema is parsed before anybody can ask what is in it. That takes no steps but a time that may
// grow with the square of a statement. A browser's has some twenty objects, of less than 2 KB each.
constexpr std::int64_t stepsForSchema = 1 << 12; // six or seven for an object
constexpr std::int64_t pagesForSchema = 1 << 14;
constexpr std::int64_t longestObject = 1 << 14;
constexpr int mostInstructions = 1 << 16;

// An honest row takes about 20 steps and 14 bytes at least, and looks into few pages besides its
// own. Looking into a page takes the longer the larger it is.
constexpr std::int64_t stepsForByte = 16;
constexpr std::int64_t stepsOnCredit = 1 << 20;
constexpr std::int64_t pageBytesForByte = 1 << 10;
constexpr std::int64_t pageBytesOnCredit = std::int64_t{1} << 32U;
constexpr int stepsBetweenChecks = 1 << 9;

constexpr int largestPage = 1 << 16;
constexpr std::int64_t largestSize = std::int64_t{1} << 48U; // so that nothing overflows

// A byte that is not UTF-8 is repaired to three. What comes of a value is shorter than 4 GiB.
constexpr std::int64_t bytesForByte = 3;
constexpr std::int64_t longestValue = 1'000'000'000; // as SQLite has it by default

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
    : _connection(connection), _size(std::min(size, largestSize)), _stepsLeft(stepsForSchema),
      _pagesLeft(pagesForSchema), _bytesLeft(_size * bytesForByte) {
    const auto set = [&](int option, int value) {
        (void)::sqlite3_db_config(&connection, option, value, nullptr); // NOLINT(*-vararg)
    };
    set(SQLITE_DBCONFIG_DEFENSIVE, 1);
    set(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    set(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    set(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    // Nothing is to be written, not even what stands in a write-ahead log.
    set(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1);
    // No virtual table: making a connection to one runs code that believes what the database says.
    (void)::sqlite3_drop_modules(&connection, nullptr);
    (void)::sqlite3_limit(&connection, SQLITE_LIMIT_VDBE_OP, mostInstructions);
    ::sqlite3_progress_handler(&connection, stepsBetweenChecks, &takesSteps, this);
}

SQLiteGuard::~SQLiteGuard() {
    (void)::sqlite3_set_authorizer(&_connection, nullptr, nullptr);
    ::sqlite3_progress_handler(&_connection, 0, nullptr, nullptr);
}

bool SQLiteGuard::allowsSchema() {
    // One call of a function may take hours, which nothing can interrupt, and statistics that are
    // computed by calling it are read with the schema.
    const int mostArguments = ::sqlite3_limit(&_connection, SQLITE_LIMIT_FUNCTION_ARG, 0);
    (void)::sqlite3_limit(&_connection, SQLITE_LIMIT_LENGTH, int{longestObject});
    if (!areAll(_connection, "SELECT rootpage FROM main.sqlite_master LIMIT 1",
                [](::sqlite3_stmt* /*row*/) { return true; })) {
        return false;
    }
    (void)::sqlite3_limit(&_connection, SQLITE_LIMIT_FUNCTION_ARG, mostArguments);
    // Only damage makes a value longer than all of the database.
    const auto length = static_cast<int>(std::clamp(_size, longestObject, longestValue));
    (void)::sqlite3_limit(&_connection, SQLITE_LIMIT_LENGTH, length);
    (void)::sqlite3_set_authorizer(&_connection, &readsTable, this);
    return true;
}

bool SQLiteGuard::allowsStatement() {
    if (_lacksMemory) {
        throw std::bad_alloc();
    }
    allowRows();
    return std::ranges::all_of(_columnsRead, [&](const auto& read) {
        return areStored(_connection, read.first, read.second);
    });
}

void SQLiteGuard::allowRows() {
    int pageSize = largestPage;
    (void)areAll(_connection, "PRAGMA main.page_size", [&](::sqlite3_stmt* row) {
        pageSize = ::sqlite3_column_int(row, 0);
        return true;
    });
    _stepsLeft = stepsOnCredit + _size * stepsForByte;
    _pagesLeft = (pageBytesOnCredit + _size * pageBytesForByte) / pageSize;
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
