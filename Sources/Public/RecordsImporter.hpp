#pragma once

#include <memory>

#include <Rellinor/RecordsImporting.hpp>

namespace Rellinor {

/// Imports records; the one entry into the library.
///
/// Making one reads nothing. It creates what a source needs at the first import from that source
/// and keeps it, so a host that imports several files keeps one `RecordsImporter`. What an import
/// finds does not depend on those before it.
///
/// Not safe for use from two threads at once; one for each thread is safe.
class RELLINOR_PUBLIC RecordsImporter final : public RecordsImporting {
public:
    /// An importer that has read nothing yet.
    RecordsImporter();

    /// Leaves the records it has handed over as they are.
    ~RecordsImporter() override;

    void records(const URL& url, ImportSource source, const RecordsCompletion& onComplete) override;

private:
    class Impl;
    std::unique_ptr<Impl> _impl;
};

} // namespace Rellinor
