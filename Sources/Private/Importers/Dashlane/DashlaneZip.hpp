#pragma once

#include "Private/Importers/RecordsBlock.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// Reads the CSV files that Dashlane exports together, in an archive or a folder, into one import.
///
/// @throws ReadError  none of them is there, or one of them cannot be read
void readDashlaneFiles(const ExportFile& file, RecordsBlock& block, Reporter& reporter);

} // namespace Rellinor
