#pragma once

#include "Private/Importers/RecordsBlock.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// Reads what Safari exports, an archive or a folder with the same files: the passwords and the
/// payment cards, by their contents, since the files have names in the user's language. The file of
/// cards alone is read too.
///
/// @throws ReadError  neither is there, or one of them cannot be read
void readSafariFiles(const ExportFile& file, RecordsBlock& block, Reporter& reporter);

} // namespace Rellinor
