#include "Host/DatabaseCaution.hpp"

#include <filesystem>
#include <string_view>
#include <system_error>

#include <sqlite3.h>

namespace Rellinor::Host {

namespace {

// An honest row takes some 20 steps and 14 bytes at least, looks into few pages besides its own,
// and is read a few times. What is there besides the rows is read on credit.
constexpr std::int64_t stepsForByte = 64;
constexpr std::int64_t pagesForByte = 4;
constexpr std::int64_t credit = 1 << 20;
constexpr int stepsBetweenChecks = 1 << 12;

std::int64_t sizeOf(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0 : static_cast<std::int64_t>(size);
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

DatabaseCaution::DatabaseCaution(::sqlite3& connection, const std::string& path)
    : _connection(connection) {
    const std::int64_t size = sizeOf(path) + sizeOf(path + "-wal");
    _stepsLeft = credit + size * stepsForByte;
    _pagesLeft = credit + size * pagesForByte;
    const auto set = [&](int option, int value) {
        (void)::sqlite3_db_config(&connection, option, value, nullptr); // NOLINT(*-vararg)
    };
    set(SQLITE_DBCONFIG_DEFENSIVE, 1);
    set(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    set(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    set(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    set(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1);
    ::sqlite3_progress_handler(&connection, stepsBetweenChecks, &takesSteps, this);
}

int DatabaseCaution::takesSteps(void* caution) noexcept {
    auto& self = *static_cast<DatabaseCaution*>(caution);
    self._stepsLeft -= stepsBetweenChecks;
    self._pagesLeft -= pagesReadOf(self._connection);
    return self._stepsLeft < 0 || self._pagesLeft < 0 ? 1 : 0;
}

} // namespace Rellinor::Host
