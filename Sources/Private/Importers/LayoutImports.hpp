#pragma once

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/Layout.hpp>

#include "Private/Importers/RecordsBlock.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// Reads a file faithfully, as a layout.
[[nodiscard]] Assembled importLayout(const ExportFile& file, Layout layout, Reporter& reporter);

/// No records, for a reason that the reporter is told.
[[nodiscard]] Assembled failedImport(FailureReason reason, Reporter& reporter);

} // namespace Rellinor
