#pragma once

#include <expected>
#include <functional>

#include <Rellinor/Export.hpp>
#include <Rellinor/Models/ImportSource.hpp>
#include <Rellinor/Models/ImportedRecords.hpp>
#include <Rellinor/NSError.hpp>
#include <Rellinor/URL.hpp>

namespace Rellinor {

/// The outcome of an import: all three lists, or one error and no list.
using RecordsResult = std::expected<ImportedRecords, NSError>;

/// Receives the outcome of an import. The result is handed over; the host may keep it.
using RecordsCompletion = std::function<void(RecordsResult)>;

/// The interface through which a host imports records, so that it can put a double in its place.
class RELLINOR_PUBLIC RecordsImporting {
public:
    RecordsImporting(const RecordsImporting&) = delete;
    RecordsImporting& operator=(const RecordsImporting&) = delete;
    virtual ~RecordsImporting() = default;

    /// Imports everything that the file or folder at `url` holds.
    ///
    /// Bad input never throws: it arrives as the error of the result. A single record that cannot
    /// be built is left out, and the import succeeds without it.
    ///
    /// The work is done on the calling thread, and `onComplete` is called exactly once before this
    /// returns. Time and memory grow linearly with the size of the input.
    ///
    /// What `onComplete` throws passes through to the caller, and it is not called again.
    ///
    /// @param url         the file or folder that the case of `ImportSource` names
    /// @param source      the product that wrote it; a value that is no case stops the process
    /// @param onComplete  receives the result; must hold a function
    virtual void records(const URL& url, ImportSource source,
                         const RecordsCompletion& onComplete) = 0;

protected:
    RecordsImporting() = default;
};

} // namespace Rellinor
