#include "Private/Importers/LayoutImports.hpp"

#include <expected>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/Chrome/ChromiumLoginsImporter.hpp"
#include "Private/Importers/Firefox/FirefoxProfileImporter.hpp"
#include "Private/Importers/Importer.hpp"

namespace Rellinor {

namespace {

template <typename LayoutImporter>
Assembled readAs(const ExportFile& file, Reporter& reporter) {
    LayoutImporter importer;
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
    case Layout::chromiumLogins:
        return readAs<ChromiumLoginsImporter>(file, reporter);
    case Layout::firefoxProfile:
        return readAs<FirefoxProfileImporter>(file, reporter);
    default:
        return failedImport(FailureReason::notRead, reporter);
    }
}

} // namespace Rellinor
