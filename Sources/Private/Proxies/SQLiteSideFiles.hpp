#pragma once

#include <cstdint>
#include <optional>

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor {

/// How many bytes a database has, those of the journal and the log beside it included. Absent if
/// it is no file, or these are not such as SQLite leaves behind, and would do harm:
///
/// - a link, pipe, device or folder in the place of either, which it might wait for;
/// - a journal or log of an empty file, which SQLite deletes, and which may be somebody's that only
///   has such a name;
/// - a journal that names another file: SQLite deletes that, whatever it is, when it has played the
///   journal back;
/// - a journal that makes the database a multiple of what both hold.
///
/// @param connection  just opened; with its first statement SQLite plays a journal back
/// @throws std::bad_alloc
[[nodiscard]] std::optional<std::int64_t> sizeOfDatabase(::sqlite3& connection);

} // namespace Rellinor
