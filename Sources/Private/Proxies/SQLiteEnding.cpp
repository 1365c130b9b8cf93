#include "Private/Proxies/SQLiteEnding.hpp"

#include <string_view>

#include <sqlite3.h>

namespace Rellinor {

namespace {

/// Whether a connection's last error came of one of its limits, or of a virtual table. Of these
/// SQLite gives the codes that it gives of damage or of a missing table.
bool isRefusal(::sqlite3& connection) noexcept {
    const std::string_view message = ::sqlite3_errmsg(&connection);
    return message.ends_with(::sqlite3_errstr(SQLITE_TOOBIG)) ||
           message.starts_with("no such module: ") || message.starts_with("unsafe use of ") ||
           message.starts_with("Expression tree is too large") ||
           message == "LIKE or GLOB pattern too complex";
}

} // namespace

SQLiteEnding endingOf(::sqlite3& connection, int code, SQLiteEnding otherwise) noexcept {
    constexpr unsigned int basic = 0xFF; // the rest is details

    switch (static_cast<unsigned int>(code) & basic) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return SQLiteEnding::complete;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return SQLiteEnding::notOpened;
    case SQLITE_NOTADB:
        return SQLiteEnding::notADatabase;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
        return SQLiteEnding::locked;
    case SQLITE_INTERRUPT:
    case SQLITE_TOOBIG:
        return SQLiteEnding::refused;
    case SQLITE_CORRUPT:
        return isRefusal(connection) ? SQLiteEnding::refused : SQLiteEnding::damaged;
    case SQLITE_ERROR:
        return isRefusal(connection) ? SQLiteEnding::refused : otherwise;
    default:
        return SQLiteEnding::damaged;
    }
}

} // namespace Rellinor
