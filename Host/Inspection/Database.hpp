#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Host/DatabaseCaution.hpp"

struct sqlite3;      // NOLINT(readability-identifier-naming): the C library's own
struct sqlite3_stmt; // NOLINT(readability-identifier-naming)

namespace Rellinor::Host {

/// The row on which a query stands; a view.
class DatabaseRow {
public:
    explicit DatabaseRow(::sqlite3_stmt& statement) noexcept : _statement(&statement) {}

    // The columns are counted from 0.

    /// Whether it holds a number other than 0.
    [[nodiscard]] bool isTrue(int column) const noexcept;

    [[nodiscard]] bool isNull(int column) const noexcept;

    [[nodiscard]] bool isText(int column) const noexcept;

    /// Whether it holds bytes, one at least.
    [[nodiscard]] bool isFilledBlob(int column) const noexcept;

    [[nodiscard]] bool isEmptyBlob(int column) const noexcept;

    /// The text, which is cut at a NUL; only for as long as the row is the current one.
    [[nodiscard]] std::string_view text(int column) const noexcept;

private:
    ::sqlite3_stmt* _statement;
};

/// A database of SQLite, of which nothing is known and which is only read: nothing waits for a
/// lock, and no file is made beside it. What fails leaves a problem, and all later calls do
/// nothing.
class Database {
public:
    /// Opens the regular file at `path`.
    explicit Database(const std::string& path);

    /// What keeps it from being read, for people; empty if nothing does.
    [[nodiscard]] std::string_view problem() const noexcept { return _problem; }

    /// Whether the problem is damage, before which there may have been rows.
    [[nodiscard]] bool isDamaged() const noexcept { return _isDamaged; }

    /// Makes it a problem unless there is such a table with all of these columns: a plain one, in
    /// which a row costs no more than it holds. A view may take any time.
    void requireTable(std::string_view table, std::span<const std::string_view> columns);

    /// Whether there is such a table.
    [[nodiscard]] bool hasTable(std::string_view table, std::span<const std::string_view> columns);

    /// Calls `visit` for each row that a query gives.
    void forEachRow(const std::string& query, const std::function<void(const DatabaseRow&)>& visit);

private:
    struct Closer {
        void operator()(::sqlite3* connection) const noexcept;
    };

    /// Why there is no such table; empty if there is one.
    [[nodiscard]] std::string tableProblem(std::string_view table,
                                           std::span<const std::string_view> columns);

    void fail(int code);

    std::optional<DatabaseCaution> _caution; // outlives the connection
    std::unique_ptr<::sqlite3, Closer> _connection;
    std::string _problem;
    bool _isDamaged = false;
    bool _lacksLog = false; // though there was one once
};

/// Whether the database at `path` keeps its changes in a file beside it, in a folder where this
/// user may make none.
[[nodiscard]] bool cannotHaveItsLog(const std::string& path);

/// Whether changes to the database at `path` stand in a file beside it and not yet in itself.
[[nodiscard]] bool hasChangesBeside(const std::string& path);

} // namespace Rellinor::Host
