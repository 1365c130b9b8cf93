#include "Private/Importers/ImporterSlots.hpp"

#include "Platform/Fault.hpp"
#include "Private/Importers/Importer.hpp"

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
        importRecords(filled(chromeImporter), url, onComplete);
        return;
    case lastPass:
        importRecords(filled(lastPassImporter), url, onComplete);
        return;
    case dashlane:
        importRecords(filled(dashlaneImporter), url, onComplete);
        return;
    case onePassword:
        importRecords(filled(onePasswordImporter), url, onComplete);
        return;
    case tirel:
        importRecords(filled(tirelImporter), url, onComplete);
        return;
    case keePass:
    case keePassXC:
        importRecords(filled(keePassImporter), url, onComplete);
        return;
    case firefox:
        importRecords(filled(firefoxImporter), url, onComplete);
        return;
    }
    fault();
}

} // namespace Rellinor
