#include "Public/RecordsImporter.hpp"

#include <expected>
#include <memory>

#include "Private/Errors/ThrownError.hpp"
#include "Private/Importers/ImporterSlots.hpp"

namespace Rellinor {

namespace {

RecordsResult recordsOf(ImporterSlots& slots, const URL& url, ImportSource source) noexcept {
    try {
        return slots.read(ExportFile(url), source, nullptr).records;
    } catch (...) {
        return std::unexpected(thrownError()); // there is no memory for the path
    }
}

} // namespace

class RecordsImporter::Impl final : public ImporterSlots {};

RecordsImporter::RecordsImporter() : _impl(std::make_unique<Impl>()) {}

RecordsImporter::~RecordsImporter() = default;

void RecordsImporter::records(const URL& url, ImportSource source,
                              const RecordsCompletion& onComplete) {
    // Outside every try: what the host throws is the host's.
    onComplete(recordsOf(*_impl, url, source));
}

} // namespace Rellinor
