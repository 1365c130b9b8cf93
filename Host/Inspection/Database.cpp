#include "Host/Inspection/Database.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <new>
#include <optional>
#include <system_error>
#include <vector>

#include <sqlite3.h>
#include <unistd.h>

#include "Host/DatabaseAddress.hpp"
#include "Host/DatabaseSideFile.hpp"
#include "Host/FileContents.hpp"
#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

std::uintmax_t sizeOf(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

/// Whether SQLite might wait at what stands where it looks for a journal or a log.
bool isNoFile(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::symlink_status(path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

/// What the beginning of a database tells.
struct Header {
    std::size_t pageSize = 1;
    bool hasWriteAheadLog = false; ///< whether it keeps its changes in a file "-wal"
};

Header headerOf(const std::string& path) {
    constexpr std::size_t size = 20;

    const auto bytes = contentsOf(path, size).value_or("");
    if (bytes.size() < size || !bytes.starts_with("SQLite format 3")) {
        return {};
    }
    const auto high = static_cast<unsigned char>(bytes[16]);
    const auto low = static_cast<unsigned char>(bytes[17]);
    const std::size_t pageSize = high * std::size_t{256} + low;
    return {.pageSize = pageSize < 512 ? 65536 : pageSize,
            .hasWriteAheadLog = bytes.ends_with("\2\2")};
}

/// A text as a literal of SQL.
std::string literal(std::string_view text) {
    std::string quoted = "'";
    quoted += text; // a name of our own, without quotes
    return quoted + '\'';
}

bool sameName(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, sameLetter);
}

struct Column {
    std::string name;
    bool isPlain = false; // and not computed
};

constexpr std::string_view changesBeside =
    "its latest changes stand in the file -wal beside it: start and close the browser, then try "
    "again";

} // namespace

bool DatabaseRow::isTrue(int column) const noexcept {
    return ::sqlite3_column_int(_statement, column) != 0;
}

bool DatabaseRow::isNull(int column) const noexcept {
    return ::sqlite3_column_type(_statement, column) == SQLITE_NULL;
}

bool DatabaseRow::isText(int column) const noexcept {
    return ::sqlite3_column_type(_statement, column) == SQLITE_TEXT;
}

bool DatabaseRow::isFilledBlob(int column) const noexcept {
    return ::sqlite3_column_type(_statement, column) == SQLITE_BLOB &&
           ::sqlite3_column_bytes(_statement, column) > 0;
}

bool DatabaseRow::isEmptyBlob(int column) const noexcept {
    return ::sqlite3_column_type(_statement, column) == SQLITE_BLOB &&
           ::sqlite3_column_bytes(_statement, column) == 0;
}

std::string_view DatabaseRow::text(int column) const noexcept {
    const unsigned char* const bytes = ::sqlite3_column_text(_statement, column);
    // The library has its bytes as unsigned characters.
    return bytes == nullptr ? "" : reinterpret_cast<const char*>(bytes); // NOLINT(*-cast)
}

void Database::Closer::operator()(::sqlite3* connection) const noexcept {
    ::sqlite3_close_v2(connection);
}

Database::Database(const std::string& path) {
    for (const std::string suffix : {"-journal", "-wal"}) {
        if (isNoFile(databaseSideFile(path, suffix))) {
            _problem = "what is called " + suffix + " beside it is no file: take it away";
            return;
        }
    }
    const Header header = headerOf(path);
    const bool hasLog = hasChangesBeside(path);
    if (sizeOf(path) % header.pageSize != 0) {
        _problem = "the file is cut short: copy it again";
        return;
    }
    // To read the log, SQLite would make an index of it.
    if (hasLog && sizeOf(databaseSideFile(path, "-shm")) == 0) {
        _problem = changesBeside;
        return;
    }
    _lacksLog = header.hasWriteAheadLog && !hasLog;
    std::error_code error;
    const std::string name =
        _lacksLog ? immutableAddress(path) : std::filesystem::absolute(path, error).string();
    ::sqlite3* connection = nullptr;
    const int code =
        ::sqlite3_open_v2(name.c_str(), &connection,
                          SQLITE_OPEN_READONLY | (_lacksLog ? SQLITE_OPEN_URI : 0), nullptr);
    _connection.reset(connection);
    if (code != SQLITE_OK) {
        fail(code);
        return;
    }
    _caution.emplace(*connection, path);
    if (const std::string_view refusal = _caution->refusal(); !refusal.empty()) {
        _problem = "the database is not read, since ";
        _problem += refusal;
    }
}

void Database::requireTable(std::string_view table, std::span<const std::string_view> columns) {
    std::string problem = tableProblem(table, columns);
    if (_problem.empty()) {
        _problem = std::move(problem);
    }
}

bool Database::hasTable(std::string_view table, std::span<const std::string_view> columns) {
    return _problem.empty() && tableProblem(table, columns).empty();
}

std::string Database::tableProblem(std::string_view table,
                                   std::span<const std::string_view> columns) {
    const std::string name(table);
    std::optional<bool> isPlain;
    forEachRow("SELECT type = 'table' AND rootpage > 0 FROM sqlite_master WHERE type IN ('table', "
               "'view') AND name = " +
                   literal(table) + " COLLATE NOCASE",
               [&](const DatabaseRow& row) { isPlain = row.isTrue(0); });
    if (!isPlain) {
        return "there is no table " + name + " in the database" +
               (_lacksLog ? ", perhaps since its file -wal is missing" : "");
    }
    std::vector<Column> found;
    if (*isPlain) {
        forEachRow("SELECT name, hidden = 0 FROM pragma_table_xinfo(" + literal(table) + ")",
                   [&](const DatabaseRow& row) {
                       found.emplace_back(std::string(row.text(0)), row.isTrue(1));
                   });
    }
    for (const std::string_view column : columns) {
        const auto known = std::ranges::find_if(
            found, [&](const Column& candidate) { return sameName(candidate.name, column); });
        if (*isPlain && known == found.end()) {
            return "the table " + name + " has no column " + std::string(column);
        }
        isPlain = *isPlain && known->isPlain;
    }
    return *isPlain ? "" : name + " is no plain table in this database, so it is not looked into";
}

void Database::forEachRow(const std::string& query,
                          const std::function<void(const DatabaseRow&)>& visit) {
    if (!_problem.empty()) {
        return;
    }

    struct Finalizer {
        void operator()(::sqlite3_stmt* statement) const noexcept { ::sqlite3_finalize(statement); }
    };

    ::sqlite3_stmt* prepared = nullptr;
    int code = ::sqlite3_prepare_v2(_connection.get(), query.c_str(), -1, &prepared, nullptr);
    const std::unique_ptr<::sqlite3_stmt, Finalizer> statement(prepared);
    while (code == SQLITE_OK || code == SQLITE_ROW) {
        code = ::sqlite3_step(prepared);
        if (code == SQLITE_ROW) {
            visit(DatabaseRow(*prepared));
        }
    }
    if (code != SQLITE_DONE) {
        fail(code);
    }
}

void Database::fail(int code) {
    switch (code) {
    case SQLITE_NOMEM:
        throw std::bad_alloc();
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        _problem = "the database is locked: close the browser and try again";
        break;
    case SQLITE_NOTADB:
        _problem = "the file is not an SQLite database";
        break;
    case SQLITE_CORRUPT:
    case SQLITE_INTERRUPT: // for it took too many steps
        _problem = "the database is damaged";
        _isDamaged = true;
        break;
    case SQLITE_READONLY:
        _problem = "its latest changes were broken off and stand in the file -journal beside it: "
                   "start and close the browser, then try again";
        break;
    default:
        _problem = "the database cannot be read";
        break;
    }
}

bool cannotHaveItsLog(const std::string& path) {
    const std::filesystem::path log = databaseSideFile(path, "-wal");
    return headerOf(path).hasWriteAheadLog && ::access(log.parent_path().c_str(), W_OK) != 0;
}

bool hasChangesBeside(const std::string& path) {
    return headerOf(path).hasWriteAheadLog && sizeOf(databaseSideFile(path, "-wal")) > 0;
}

} // namespace Rellinor::Host
