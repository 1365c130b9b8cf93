#include "Public/RecordsImporter.hpp"

#include <memory>

#include "Platform/Fault.hpp"
#include "Private/Importers/ImporterSlots.hpp"

namespace Rellinor {

namespace {

template <typename SourceImporter>
SourceImporter& filled(std::optional<SourceImporter>& slot) {
    return slot ? *slot : slot.emplace();
}

} // namespace

class RecordsImporter::Impl final : public ImporterSlots {};

RecordsImporter::RecordsImporter() : _impl(std::make_unique<Impl>()) {}

RecordsImporter::~RecordsImporter() = default;

void RecordsImporter::records(const URL& url, ImportSource source,
                              const RecordsCompletion& onComplete) {
    switch (source) {
        using enum ImportSource;
    case lastPass:
        return filled(_impl->lastPassImporter).records(url, onComplete);
    case chrome:
    case dashlane:
    case onePassword:
    case tirel:
    case keePass:
    case keePassXC:
    case firefox:
        return onComplete(std::unexpected(NSError("Rellinor.UnavailableSourceError", 1)));
    }
    fault();
}

} // namespace Rellinor
