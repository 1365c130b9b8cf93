#pragma once

#include <string>
#include <vector>

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
    Connection() = default;

    ::sqlite3* _connection = nullptr;
};

/// Makes a database "database" by these statements; returns its path.
[[nodiscard]] std::string database(const TemporaryFolder& folder, const Statements& statements);

/// An SQL expression for a text of so many zeros that it takes pages of its own.
inline const std::string longText = "hex(zeroblob(9000))";

/// Damages the third row of the first table of a database with pages of 512 bytes: it claims 4 GiB,
/// which SQLite takes for a lack of memory.
void claimMemory(const std::string& path);

/// Damages the pages that the long texts of a database take, so that reading one is an error.
void damageLongTexts(const std::string& path);

} // namespace Rellinor::Tests
