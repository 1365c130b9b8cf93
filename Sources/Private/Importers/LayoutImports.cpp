#include "Private/Importers/LayoutImports.hpp"

#include <expected>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Importers/Chrome/ChromiumLoginsImporter.hpp"
#include "Private/Importers/Firefox/FirefoxProfileImporter.hpp"
#include "Private/Importers/Importer.hpp"
#include "Private/Importers/NamedColumnsImporter.hpp"
#include "Private/Importers/OnePassword/OnePIFImporter.hpp"
#include "Private/Importers/Tirel/FaithfulTirelImporter.hpp"

namespace Rellinor {

namespace {

template <Importer LayoutImporter>
Assembled readAs(const ExportFile& file, Reporter& reporter) {
    LayoutImporter importer;
    return readWith(importer, file, &reporter);
}

Assembled readCSV(const ExportFile& file, Layout layout, Reporter& reporter) {
    NamedColumnsImporter importer(layout);
    return readWith(importer, file, &reporter);
}

} // namespace

Assembled failedImport(FailureReason reason, Reporter& reporter) {
    reporter.fail(reason);
    const ReadError error(reason);
    return {.records = std::unexpected(NSError(error.domain(), error.code())), .extras = {}};
}

Assembled importLayout(const ExportFile& file, Layout layout, Reporter& reporter) {
    reporter.setLayout(layout);
    switch (layout) {
        using enum Layout;
    case chromiumLogins:
        return readAs<ChromiumLoginsImporter>(file, reporter);
    case firefoxProfile:
        return readAs<FirefoxProfileImporter>(file, reporter);
    case onePassword1PIF:
        return readAs<OnePIFImporter>(file, reporter);
    case tirelJSON:
        return readAs<FaithfulTirelImporter>(file, reporter);
    default:
        return isCSV(layout) ? readCSV(file, layout, reporter)
                             : failedImport(FailureReason::notRead, reporter);
    }
}

} // namespace Rellinor
