#include "Private/Proxies/SQLiteGuard.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <new>

#include <sqlite3.h>

#include "Private/Proxies/SQLiteExpansion.hpp"
#include "Private/Proxies/SQLiteMemory.hpp"
#include "Private/Proxies/SQLiteProgram.hpp"

namespace Rellinor {

namespace {

constexpr std::int64_t largestSize = std::int64_t{1} << 48U; // so that nothing overflows

// How long a value may be. In a table, only damage makes one longer than all of the database.
constexpr std::int64_t leastLimit = 1 << 20;
constexpr std::int64_t mostLimit = 1'000'000'000; // as SQLite has it by default

// The text that makes a table, view, index or trigger. SQLite takes up to two seconds to read this.
constexpr int longestObject = 1 << 18;

// What rows may hold. A byte that is not UTF-8 is repaired to three.
constexpr std::int64_t bytesOnCredit = 1 << 24;
constexpr std::int64_t bytesForByte = 3;
constexpr std::int64_t computedBytesForByte = 16;

// What a query that computes may do. SQLite does not ask whether to go on before a jump, so the
// length of the program limits the length of the values that it works on.
constexpr int mostInstructions = 1 << 16;
constexpr int longestPattern = 128;
constexpr std::int64_t workOnCredit = 1 << 28; // bytes
constexpr std::int64_t workForByte = 64;

// A row of a schema takes seven steps. Each may take as long as its text.
constexpr int stepsBetweenObjects = 4;
constexpr int stepsBetweenChecks = 64;

// What SQLite needs at most. If there is as much, what it lacks is no memory.
constexpr std::int64_t plainMemory = 1 << 24;
constexpr std::int64_t computingMemory = 1 << 29;
constexpr std::int64_t memoryForByte = 4;

/// Limits, for a scope, within which no schema computes: all that an expression may be is a column,
/// a value, or a function without arguments. They leave room for columns that are computed of each
/// other in 256 KiB of stack.
class PlainSchemaLimits {
public:
    explicit PlainSchemaLimits(::sqlite3& connection) noexcept : _connection(connection) {
        exchange();
    }

    ~PlainSchemaLimits() { exchange(); }

    PlainSchemaLimits(const PlainSchemaLimits&) = delete;
    PlainSchemaLimits& operator=(const PlainSchemaLimits&) = delete;

private:
    struct Limit {
        int name;
        int value;
    };

    void exchange() noexcept {
        for (Limit& limit : _limits) {
            limit.value = ::sqlite3_limit(&_connection, limit.name, limit.value);
        }
    }

    ::sqlite3& _connection;
    std::array<Limit, 3> _limits = {{{.name = SQLITE_LIMIT_FUNCTION_ARG, .value = 0},
                                     {.name = SQLITE_LIMIT_EXPR_DEPTH, .value = 1},
                                     {.name = SQLITE_LIMIT_COLUMN, .value = 100}}};
};

void configure(::sqlite3& connection, int option, int value) noexcept {
    (void)::sqlite3_db_config(&connection, option, value, nullptr); // NOLINT(*-vararg)
}

/// Calls `use` with each row of a query. Gives SQLite's code.
///
/// @throws std::bad_alloc
int forEachRow(::sqlite3& connection, const char* query, auto use) {
    ::sqlite3_stmt* prepared = nullptr;
    int code = ::sqlite3_prepare_v2(&connection, query, -1, &prepared, nullptr);
    const std::unique_ptr<::sqlite3_stmt, decltype(&::sqlite3_finalize)> statement(
        prepared, &::sqlite3_finalize);
    while (code == SQLITE_OK || code == SQLITE_ROW) {
        code = ::sqlite3_step(prepared);
        if (code == SQLITE_ROW) {
            use(prepared);
        }
    }
    if (code == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

/// Whether a program calls a function that is not SQLite's own and may do harm.
///
/// @throws std::bad_alloc
bool callsUnsafe(::sqlite3& connection, const SQLiteProgram& program) {
    constexpr int name = 0;
    constexpr int isOwn = 1;
    constexpr int flags = 5;

    bool isUnsafe = false;
    const auto look = [&](::sqlite3_stmt* function) {
        const void* const text = ::sqlite3_column_text(function, name);
        isUnsafe = isUnsafe ||
                   (::sqlite3_column_int(function, isOwn) == 0 &&
                    (::sqlite3_column_int(function, flags) & SQLITE_INNOCUOUS) == 0 &&
                    text != nullptr && program.functions.contains(static_cast<const char*>(text)));
    };
    return forEachRow(connection, "PRAGMA function_list", look) != SQLITE_OK || isUnsafe;
}

} // namespace

SQLiteGuard::SQLiteGuard(::sqlite3& connection, std::int64_t size) noexcept
    : _connection(connection), _size(std::min(size, largestSize)),
      _longestValue(std::clamp(_size, leastLimit, mostLimit)),
      _bytesLeft(bytesOnCredit + _size * bytesForByte), _meter(connection, _size) {
    configure(connection, SQLITE_DBCONFIG_DEFENSIVE, 1);
    configure(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    configure(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    // Nothing is to be written, not even what stands in a write-ahead log.
    configure(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1);
    // Virtual tables are code that believes what the database says.
    (void)::sqlite3_drop_modules(&connection, nullptr);
    (void)::sqlite3_limit(&connection, SQLITE_LIMIT_LENGTH, static_cast<int>(_longestValue));
    (void)::sqlite3_limit(&connection, SQLITE_LIMIT_SQL_LENGTH, longestObject);
    (void)::sqlite3_limit(&connection, SQLITE_LIMIT_VDBE_OP, mostInstructions);
    _meter.measureTime(stepsBetweenObjects);
}

bool SQLiteGuard::allowsSchema() {
    int code = SQLITE_OK;
    {
        const PlainSchemaLimits limits(_connection);
        code = readSchema();
    }
    if (code == SQLITE_OK && !hasViews()) {
        return true;
    }
    // A schema that is not plain has the code of a damaged one.
    if ((code != SQLITE_OK && code != SQLITE_CORRUPT) || !allowsTexts()) {
        return false;
    }
    // Here functions are looked up and not called, those too that no schema may call.
    configure(_connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 1);
    code = readSchema();
    configure(_connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    return code == SQLITE_OK;
}

bool SQLiteGuard::allowsTexts() {
    // For now SQLite leaves out what is not plain, and with it statistics that are computed.
    configure(_connection, SQLITE_DBCONFIG_WRITABLE_SCHEMA, 1);
    {
        const PlainSchemaLimits limits(_connection);
        if (readSchema() != SQLITE_OK) {
            return false;
        }
    }
    _schema.emplace();
    std::int64_t bytesLeft = _bytesLeft;
    const auto add = [&](::sqlite3_stmt* row) {
        const void* const text = ::sqlite3_column_text(row, 0);
        bytesLeft -= ::sqlite3_column_bytes(row, 0);
        if (text != nullptr && bytesLeft >= 0) {
            _schema->add(static_cast<const char*>(text));
        }
    };
    if (forEachRow(_connection, "SELECT sql FROM main.sqlite_master", add) != SQLITE_OK) {
        return false;
    }
    if (bytesLeft < 0 || _schema->computesStatistics()) {
        return refuse();
    }
    // Now it forgets the rest too, to read all of it.
    return forEachRow(_connection, "PRAGMA writable_schema = RESET", [](::sqlite3_stmt*) {}) ==
           SQLITE_OK;
}

int SQLiteGuard::readSchema() const {
    const auto read = [&] {
        return ::sqlite3_table_column_metadata(&_connection, "main", "sqlite_master", nullptr,
                                               nullptr, nullptr, nullptr, nullptr, nullptr);
    };
    const int code = read();
    if (code == SQLITE_NOMEM) {
        requireMemory(read());
    }
    return code;
}

bool SQLiteGuard::hasViews() const {
    bool hasOne = false;
    const int code =
        forEachRow(_connection, "SELECT 1 FROM main.sqlite_master WHERE sql LIKE '%view%' LIMIT 1",
                   [&](::sqlite3_stmt* /*row*/) { hasOne = true; });
    return hasOne || code != SQLITE_OK;
}

bool SQLiteGuard::allowsStatement(std::string_view query) {
    if (!_schema) {
        _meter.countSteps();
        return true;
    }
    if (!_schema->isBounded(query)) {
        return refuse();
    }
    (void)::sqlite3_limit(&_connection, SQLITE_LIMIT_EXPR_DEPTH,
                          int{SQLiteExpansion::deepestExpression});
    (void)::sqlite3_limit(&_connection, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, longestPattern);
    _dearFunctions.emplace(_connection, workOnCredit + _size * workForByte);
    SQLiteProgram program;
    const int code = readTrustedProgram(query, program);
    if (code == SQLITE_NOMEM) {
        requireMemory(readTrustedProgram(query, program));
        return refuse(); // it is too long
    }
    if (code == SQLITE_OK) {
        limit(program);
    }
    return true; // if it cannot be prepared, SQLite says why
}

int SQLiteGuard::readTrustedProgram(std::string_view query, SQLiteProgram& program) const {
    int code = readProgram(_connection, query, program);
    if (code != SQLITE_ERROR ||
        !std::string_view(::sqlite3_errmsg(&_connection)).starts_with("unsafe use of ")) {
        return code;
    }
    // SQLite 3.38 to 3.40 holds its own functions of JSON for unsafe.
    configure(_connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 1);
    code = readProgram(_connection, query, program);
    if (code == SQLITE_OK && (program.readsVirtualTable || callsUnsafe(_connection, program))) {
        code = SQLITE_ERROR;
    }
    configure(_connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, code == SQLITE_OK ? 1 : 0);
    return code;
}

void SQLiteGuard::limit(const SQLiteProgram& program) noexcept {
    if (program.isPlain) {
        _meter.countSteps();
        return;
    }
    const std::int64_t longestValue = (workOnCredit + _size * workForByte) / program.weight;
    (void)::sqlite3_limit(&_connection, SQLITE_LIMIT_LENGTH,
                          static_cast<int>(std::min(longestValue, _longestValue)));
    _bytesLeft = bytesOnCredit + _size * computedBytesForByte;
    _bytesForValue = sizeof(SQLiteValue); // rows that nothing is stored for have no end
    _meter.measureTime(stepsBetweenChecks);
}

bool SQLiteGuard::allowsRow(std::span<const SQLiteValue> values) noexcept {
    constexpr std::span<const char> noBytes;

    _bytesLeft -= static_cast<std::int64_t>(values.size()) * _bytesForValue;
    for (const SQLiteValue& value : values) {
        _bytesLeft -= static_cast<std::int64_t>(value.text().value_or("").size());
        _bytesLeft -= static_cast<std::int64_t>(value.blob().value_or(noBytes).size());
    }
    return _bytesLeft >= 0 || refuse();
}

bool SQLiteGuard::refuse() noexcept {
    _hasRefused = true;
    return false;
}

bool SQLiteGuard::hasRefused() const noexcept {
    return _hasRefused || _meter.isUsedUp() || (_dearFunctions && _dearFunctions->isUsedUp());
}

void SQLiteGuard::requireMemory(int codeOfSecondTry) const {
    const std::int64_t most =
        (_schema ? computingMemory : plainMemory) + _longestValue * memoryForByte;
    if (codeOfSecondTry != SQLITE_NOMEM || !hasMemory(most)) {
        throw std::bad_alloc();
    }
}

} // namespace Rellinor
