#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "Private/Proxies/SQLiteRows.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor::Tests {

/// SQL texts, each of one or more statements.
using Statements = std::vector<std::string>;

/// A connection of SQLite's own to a database, which is made if there is none.
class Connection {
public:
    explicit Connection(const std::string& path);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Fails the test program if SQLite does not accept them.
    void execute(const Statements& statements) const;

private:
    ::sqlite3* _connection = nullptr;
};

/// Makes a database "database" by these statements; returns its path.
[[nodiscard]] std::string database(const TemporaryFolder& folder, const Statements& statements);

/// Bytes that are not a text.
struct Blob {
    std::string bytes;

    bool operator==(const Blob&) const = default;
};

/// What a row holds, copied out so that it can be compared and printed.
using Value = std::variant<std::monostate, std::int64_t, float, std::string, Blob>;
using Values = std::map<std::string, Value>;

inline constexpr std::monostate absent;

std::ostream& operator<<(std::ostream& out, const Blob& blob);

[[nodiscard]] std::vector<Values> copyOf(const SQLiteRows& rows);

} // namespace Rellinor::Tests
