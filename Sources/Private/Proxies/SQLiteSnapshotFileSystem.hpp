#pragma once

#include <array>
#include <memory>
#include <span>

struct sqlite3;     // NOLINT(readability-identifier-naming): the C library's own
struct sqlite3_vfs; // NOLINT(readability-identifier-naming)

namespace Rellinor {

/// A file system of SQLite's in which there is one file, a database in memory, which can only be
/// read. SQLite reads its pages where they stand. There is nothing beside the database, and no
/// temporary file.
///
/// SQLite knows it while this is there, under a name that no other has.
class SQLiteSnapshotFileSystem {
public:
    /// @param database  outlives this, and is not changed meanwhile
    /// @throws std::bad_alloc
    explicit SQLiteSnapshotFileSystem(std::span<char> database);
    ~SQLiteSnapshotFileSystem();
    SQLiteSnapshotFileSystem(const SQLiteSnapshotFileSystem&) = delete;
    SQLiteSnapshotFileSystem& operator=(const SQLiteSnapshotFileSystem&) = delete;

    /// Opens the database, as `sqlite3_open_v2` does. The connection is closed before this goes.
    [[nodiscard]] int open(::sqlite3*& connection) const noexcept;

private:
    std::array<char, 32> _name{};
    std::span<char> _database;
    std::unique_ptr<::sqlite3_vfs> _system;
};

} // namespace Rellinor
