#include "Private/Importers/ImporterSlots.hpp"

#include <expected>

#include "Platform/Fault.hpp"

namespace Rellinor {

namespace {

template <typename SourceImporter>
SourceImporter& filled(std::optional<SourceImporter>& slot) {
    return slot ? *slot : slot.emplace();
}

} // namespace

void ImporterSlots::records(const URL& url, ImportSource source,
                            const RecordsCompletion& onComplete) {
    switch (source) {
        using enum ImportSource;
    case chrome:
        return filled(chromeImporter).records(url, onComplete);
    case lastPass:
        return filled(lastPassImporter).records(url, onComplete);
    case firefox:
        return filled(firefoxImporter).records(url, onComplete);
    case dashlane:
    case onePassword:
    case tirel:
    case keePass:
    case keePassXC:
        return onComplete(std::unexpected(NSError("Rellinor.UnavailableSourceError", 1)));
    }
    fault();
}

} // namespace Rellinor
