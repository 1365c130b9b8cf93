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

Assembled ImporterSlots::read(const ExportFile& file, ImportSource source, Reporter* reporter) {
    switch (source) {
        using enum ImportSource;
    case chrome:
        return readWith(filled(chromeImporter), file, reporter);
    case lastPass:
        return readWith(filled(lastPassImporter), file, reporter);
    case dashlane:
        return readWith(filled(dashlaneImporter), file, reporter);
    case onePassword:
        return readWith(filled(onePasswordImporter), file, reporter);
    case tirel:
        return readWith(filled(tirelImporter), file, reporter);
    case keePass:
    case keePassXC:
        return readWith(filled(keePassImporter), file, reporter);
    case firefox:
        return readWith(filled(firefoxImporter), file, reporter);
    }
    fault();
}

} // namespace Rellinor
