#include "Host/DatabaseCaution.hpp"

#include <algorithm>
#include <climits>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <sqlite3.h>

#include "Host/DatabaseNumber.hpp"
#include "Host/DatabaseSideFile.hpp"

namespace Rellinor::Host {

namespace {

// A schema is parsed before anybody can ask what is in it, which takes no steps but a time that may
// grow with the square of a statement. A browser's has some twenty objects, of less than 2 KB each.
constexpr std::int64_t stepsForSchema = 1 << 12; // eight for an object
constexpr std::int64_t pagesForSchema = 1 << 14;
constexpr int longestObject = 1 << 14;
constexpr int mostInstructions = 1 << 16;

// An honest row takes some 20 steps and 14 bytes at least, looks into few pages besides its own,
// and is read a few times.
constexpr std::int64_t stepsForByte = 64;
constexpr std::int64_t stepsOnCredit = 1 << 20;
constexpr std::int64_t pageBytesForByte = 1 << 12;
constexpr std::int64_t pageBytesOnCredit = std::int64_t{1} << 32U;
constexpr int stepsBetweenChecks = 1 << 9;

std::int64_t sizeOf(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    constexpr std::uintmax_t largest = std::uintmax_t{1} << 48U; // so that nothing overflows
    return error ? 0 : static_cast<std::int64_t>(std::min(size, largest));
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

/// What the last error of a connection says of a schema that could not be read, unless it is
/// damaged.
std::string_view refusalOf(::sqlite3& connection) {
    switch (::sqlite3_errcode(&connection)) {
    case SQLITE_TOOBIG:
    case SQLITE_INTERRUPT:
        return "its schema is too large or too complex";
    case SQLITE_CORRUPT: // to which SQLite adds that a function has more arguments than it may
        return std::string_view(::sqlite3_errmsg(&connection))
                       .contains("too many arguments on function")
                   ? "its schema calls functions"
                   : "";
    default:
        return "";
    }
}

} // namespace

DatabaseCaution::DatabaseCaution(::sqlite3& connection, const std::string& path)
    : _connection(connection), _stepsLeft(stepsForSchema), _pagesLeft(pagesForSchema) {
    const auto set = [&](int option, int value) {
        (void)::sqlite3_db_config(&connection, option, value, nullptr); // NOLINT(*-vararg)
    };
    set(SQLITE_DBCONFIG_DEFENSIVE, 1);
    set(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    set(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    set(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    set(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1);
    (void)::sqlite3_drop_modules(&connection, nullptr);
    (void)::sqlite3_limit(&connection, SQLITE_LIMIT_FUNCTION_ARG, 0);
    (void)::sqlite3_limit(&connection, SQLITE_LIMIT_VDBE_OP, mostInstructions);
    (void)::sqlite3_limit(&connection, SQLITE_LIMIT_LENGTH, longestObject);
    ::sqlite3_progress_handler(&connection, stepsBetweenChecks, &takesSteps, this);
    // If the schema cannot be read, no later statement will get further.
    if (firstNumber(connection, "SELECT count(*) FROM sqlite_master")) {
        const std::int64_t size = sizeOf(path) + sizeOf(databaseSideFile(path, "-wal"));
        const std::int64_t longestValue = std::clamp<std::int64_t>(size, longestObject, INT_MAX);
        (void)::sqlite3_limit(&connection, SQLITE_LIMIT_LENGTH, static_cast<int>(longestValue));
        const int pageSize = firstNumber(connection, "PRAGMA page_size").value_or(1 << 16);
        _stepsLeft = stepsOnCredit + size * stepsForByte;
        _pagesLeft = (pageBytesOnCredit + size * pageBytesForByte) / pageSize;
    } else {
        _refusal = refusalOf(connection);
    }
}

int DatabaseCaution::takesSteps(void* caution) noexcept {
    auto& self = *static_cast<DatabaseCaution*>(caution);
    self._stepsLeft -= stepsBetweenChecks;
    self._pagesLeft -= pagesReadOf(self._connection);
    return self._stepsLeft < 0 || self._pagesLeft < 0 ? 1 : 0;
}

} // namespace Rellinor::Host
