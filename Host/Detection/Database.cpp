#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <system_error>

#include <sqlite3.h>

#include "Host/DatabaseAddress.hpp"
#include "Host/DatabaseCaution.hpp"
#include "Host/DatabaseNumber.hpp"
#include "Host/DatabaseSideFile.hpp"
#include "Host/Detection/Recognisers.hpp"

namespace Rellinor::Host {

namespace {

using namespace std::string_view_literals;

struct DatabaseLayout {
    std::string_view layout;
    std::optional<ImportSource> source;
    std::string_view table;
    std::array<std::string_view, 4> columns; ///< or fewer
    std::string_view advice;
};

constexpr std::string_view giveTheFolder = "give the folder that it is in, with --source firefox";

constexpr DatabaseLayout layouts[] = {
    {.layout = "Chrome login database",
     .source = ImportSource::chrome,
     .table = "logins",
     .columns = {"origin_url", "username_value", "password_value", "blacklisted_by_user"},
     .advice = {}},
    {.layout = "Firefox login database (signons.sqlite)",
     .source = std::nullopt,
     .table = "moz_logins",
     .columns = {"hostname", "encryptedUsername", "encryptedPassword", "encType"},
     .advice = giveTheFolder},
    {.layout = "Firefox key database (key4.db)",
     .source = std::nullopt,
     .table = "metaData",
     .columns = {"id", "item1", "item2"},
     .advice = giveTheFolder},
};

/// A database as its file stands: nothing is locked, written or left beside it.
class Database {
public:
    explicit Database(const std::string& path) {
        constexpr int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
        ::sqlite3* connection = nullptr;
        const int result =
            ::sqlite3_open_v2(immutableAddress(path).c_str(), &connection, flags, nullptr);
        _connection.reset(connection);
        if (result == SQLITE_NOMEM) {
            throw std::bad_alloc();
        }
        if (result == SQLITE_OK) {
            _caution.emplace(*connection, path);
        }
    }

    /// The number that a query gives; absent if the database cannot be read.
    [[nodiscard]] std::optional<int>
    number(std::string_view query, std::span<const std::string_view> arguments = {}) const {
        return _caution ? firstNumber(*_connection, query, arguments) : std::nullopt;
    }

    /// Whether there is such a table: a view, or one that an extension makes up, is none.
    [[nodiscard]] bool hasTable(std::string_view name) const {
        return number("SELECT 1 FROM sqlite_master WHERE type = 'table' AND rootpage > 0 AND "
                      "name = ?1 COLLATE NOCASE",
                      std::array{name})
            .has_value();
    }

    [[nodiscard]] bool hasColumn(std::string_view table, std::string_view name) const {
        return number("SELECT 1 FROM pragma_table_info(?1) WHERE name = ?2 COLLATE NOCASE",
                      std::array{table, name})
            .has_value();
    }

    /// Why it is not read though it may well be sound; empty if it is.
    [[nodiscard]] std::string_view refusal() const noexcept {
        return _caution ? _caution->refusal() : "";
    }

private:
    std::optional<DatabaseCaution> _caution; // outlives the connection
    std::unique_ptr<::sqlite3, decltype(&::sqlite3_close)> _connection{nullptr, &::sqlite3_close};
};

/// Whether a program has changes beside the file that are not in it yet.
bool isInUse(const std::string& path) {
    for (const std::string_view suffix : {"-wal", "-journal"}) {
        std::error_code error;
        if (std::filesystem::file_size(databaseSideFile(path, suffix), error) > 0 && !error) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<Detection> detectDatabase(const std::string& path, std::string_view beginning) {
    if (!beginning.starts_with("SQLite format 3\0"sv)) {
        return std::nullopt;
    }
    const Database database(path);
    if (!database.refusal().empty()) {
        return unknown("a SQLite database that is not read, since " +
                       std::string(database.refusal()));
    }
    for (const DatabaseLayout& layout : layouts) {
        const auto hasColumn = [&](std::string_view column) {
            return column.empty() || database.hasColumn(layout.table, column);
        };
        if (database.hasTable(layout.table) && std::ranges::all_of(layout.columns, hasColumn)) {
            return Detection{.layout = std::string(layout.layout),
                             .source = layout.source,
                             .confidence = Confidence::certain,
                             .reason = "the table " + std::string(layout.table),
                             .advice = std::string(layout.advice)};
        }
    }
    if (isInUse(path)) {
        return unknown("a SQLite database with changes beside it",
                       "close the program that uses it, and try again");
    }
    const std::optional<int> tables = database.number("SELECT count(*) FROM sqlite_master");
    if (!tables) {
        return unknown("a SQLite database that cannot be read");
    }
    return unknown(*tables == 0 ? "a SQLite database without tables"
                                : "a SQLite database of another kind");
}

} // namespace Rellinor::Host
