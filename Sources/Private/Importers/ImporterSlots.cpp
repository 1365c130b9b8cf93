#include "Private/Importers/ImporterSlots.hpp"

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
        filled(chromeImporter).records(url, onComplete);
        return;
    case lastPass:
        filled(lastPassImporter).records(url, onComplete);
        return;
    case dashlane:
        filled(dashlaneImporter).records(url, onComplete);
        return;
    case onePassword:
        filled(onePasswordImporter).records(url, onComplete);
        return;
    case tirel:
        filled(tirelImporter).records(url, onComplete);
        return;
    case keePass:
    case keePassXC:
        filled(keePassImporter).records(url, onComplete);
        return;
    case firefox:
        filled(firefoxImporter).records(url, onComplete);
        return;
    }
    fault();
}

} // namespace Rellinor
