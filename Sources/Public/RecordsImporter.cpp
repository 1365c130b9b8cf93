#include "Public/RecordsImporter.hpp"

#include <memory>

#include "Private/Importers/ImporterSlots.hpp"

namespace Rellinor {

class RecordsImporter::Impl final : public ImporterSlots {};

RecordsImporter::RecordsImporter() : _impl(std::make_unique<Impl>()) {}

RecordsImporter::~RecordsImporter() = default;

void RecordsImporter::records(const URL& url, ImportSource source,
                              const RecordsCompletion& onComplete) {
    // Outside every try: what the host throws is the host's.
    onComplete(_impl->read(ExportFile(url), source, nullptr).records);
}

} // namespace Rellinor
