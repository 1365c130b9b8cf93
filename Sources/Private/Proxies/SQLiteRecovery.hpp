#pragma once

#include <cstddef>
#include <span>

#include "Platform/File.hpp"

namespace Rellinor {

// What SQLite does with the files beside a database when it opens the database, done to a copy in
// memory. A file that does not belong to the database changes nothing; the result is then false:
//
// - its header or its first page contradicts itself by its checksum, or by the size of pages;
// - it makes the database a multiple of what both hold;
// - the database is empty;
// - a journal names another file, which SQLite would look for and delete.

/// Undoes the changes that were broken off while they were written to the database.
///
/// @param journal  as it stands beside the database; one that is empty or begins with a zero has
///                 nothing to undo
/// @throws std::bad_alloc
[[nodiscard]] bool playBackJournal(FileContents& database, std::span<const char> journal);

/// Makes the changes that stand in a write-ahead log, up to the last that is complete.
///
/// @param log  as it stands beside the database; an empty one has none
/// @throws std::bad_alloc
[[nodiscard]] bool applyLog(FileContents& database, std::span<const char> log);

} // namespace Rellinor
