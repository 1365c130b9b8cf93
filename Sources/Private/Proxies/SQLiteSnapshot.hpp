#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <span>

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/FailureReason.hpp>

#include "Platform/File.hpp"

namespace Rellinor {

/// A database as it stood at one moment, in memory that is wiped: the file, without the changes
/// that its journal undoes and with those that its write-ahead log makes. Nothing is locked or
/// written for that, so a browser that runs is no obstacle.
class SQLiteSnapshot {
public:
    /// Reads a database and what lies beside it, or says why there is none. Links to the database
    /// are followed. A link, folder, device or pipe in the place of a journal or log is left out.
    ///
    /// @param mostBytes  of each file
    /// @throws std::bad_alloc
    [[nodiscard]] static std::expected<SQLiteSnapshot, FailureReason> of(const ExportFile& file,
                                                                         std::uint64_t mostBytes);

    /// The database; its pages stand in it as SQLite reads them.
    [[nodiscard]] std::span<char> bytes() noexcept { return _database.bytes(); }

    /// How many bytes were read.
    [[nodiscard]] std::uint64_t sizeOfFiles() const noexcept { return _sizeOfFiles; }

    // Whether there is such a file, and it does not belong to the database.

    [[nodiscard]] bool hasLeftOutJournal() const noexcept { return _hasLeftOutJournal; }

    [[nodiscard]] bool hasLeftOutLog() const noexcept { return _hasLeftOutLog; }

private:
    SQLiteSnapshot() = default;

    FileContents _database;
    std::uint64_t _sizeOfFiles = 0;
    bool _hasLeftOutJournal = false;
    bool _hasLeftOutLog = false;
};

} // namespace Rellinor
