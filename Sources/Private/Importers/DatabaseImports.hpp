#pragma once

#include <cstddef>
#include <string_view>

#include <Rellinor/ExportFile.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/SQLiteEnding.hpp"
#include "Private/Proxies/SQLiteRows.hpp"
#include "Private/Proxies/SQLiteSnapshot.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// What a query of a source gives: of the database in its place, or of a snapshot if
/// there is a reporter, which is told why there are no rows or not all of them.
///
/// @throws std::bad_alloc
[[nodiscard]] SQLiteRows rowsOfSource(const ExportFile& database, std::string_view query,
                                      ImportMemory& memory, Reporter* reporter);

/// Tells which files beside a database were left out.
void reportSideFiles(const SQLiteSnapshot& snapshot, Reporter& reporter) noexcept;

/// Why a query gave no rows; `none` if there are none to give.
[[nodiscard]] FailureReason reasonOf(SQLiteEnding ending) noexcept;

/// Tells that a database was not read to its end.
///
/// @param rows  how many were read before
void reportEnding(SQLiteEnding ending, std::size_t rows, Reporter& reporter) noexcept;

} // namespace Rellinor
