#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <variant>

#include <Rellinor/Detection.hpp>
#include <Rellinor/Export.hpp>
#include <Rellinor/ExportFile.hpp>
#include <Rellinor/Extras.hpp>
#include <Rellinor/ImportReport.hpp>
#include <Rellinor/Layout.hpp>
#include <Rellinor/RecordsImporting.hpp>

namespace Rellinor {

/// How far an import has come.
struct Progress {
    std::uint64_t done = 0;  ///< in any unit; never decreases
    std::uint64_t total = 0; ///< in the same unit; 0 if it is not known
};

/// What a host is told meanwhile; false cancels the import.
using ProgressHandler = std::function<bool(const Progress&)>;

/// What is more than the host will have.
struct ReadLimits {
    /// How many bytes a file may have, and so each file beside it.
    std::uint64_t largestFile = std::numeric_limits<std::uint64_t>::max();
    /// How many bytes the members of an archive may have, unpacked and together.
    std::uint64_t largestExpansion = std::uint64_t{1} << 30U;
    /// How many raw records a file may have.
    std::uint64_t mostRecords = std::numeric_limits<std::uint64_t>::max();
};

/// How a file is read: as what `detect` takes it for, as a layout, or as a source, whose
/// result then is the same as that of `RecordsImporter`.
using ReadAs = std::variant<std::monostate, Layout, ImportSource>;

/// What is asked of a read.
struct ReadOptions {
    ReadAs as = {}; ///< how the file is read
    /// Called on the calling thread: at most once for each hundredth of the file, or once in 50 ms
    /// if it is not known how much there is. What it throws passes through to the caller.
    ProgressHandler onProgress = {};
    ReadLimits limits = {}; ///< what is more is not read
};

/// What became of a file.
struct ImportedExport {
    RecordsResult records; ///< all of them, or an error and none
    Extras extras;         ///< empty for a source
    ImportReport report;   ///< what did not arrive, and what looks wrong
};

/// Reads a file or folder, faithfully unless a source is asked for: every text that is
/// not empty arrives in a field or an extra, or its loss is told in the report.
///
/// Bad input never throws. Nothing stays behind: no file, lock, connection or descriptor.
///
/// The work is done on the calling thread. Time and memory grow linearly with the size of the file.
[[nodiscard]] RELLINOR_PUBLIC ImportedExport readExport(const ExportFile& file,
                                                        const ReadOptions& options = {});

} // namespace Rellinor
