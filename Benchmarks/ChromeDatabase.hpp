#pragma once

#include <cstddef>
#include <filesystem>

namespace Rellinor::Benchmarks {

/// Makes a login database of invented data with the browser's own tables, by SQLite itself: every
/// twentieth login is one that the user excluded. The same arguments give the same rows everywhere.
void makeChromeDatabase(const std::filesystem::path& file, std::size_t logins);

/// What a program has to do at least to have the same rows: opens the database, prepares the same
/// statement and reads the same columns of each row by their types, copying nothing. Nothing is
/// left behind.
///
/// @return how many bytes the columns have, so that nothing is optimised away
[[nodiscard]] std::size_t readChromeDatabase(const std::filesystem::path& file);

} // namespace Rellinor::Benchmarks
