#include "Private/Importers/LayoutImports.hpp"

#include <expected>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/Importer.hpp"

namespace Rellinor {

Assembled failedImport(FailureReason reason, Reporter& reporter) {
    reporter.fail(reason);
    const ReadError error(reason);
    return {.records = std::unexpected(NSError(error.domain(), error.code())), .extras = {}};
}

Assembled importLayout(const ExportFile& /*file*/, Layout layout, Reporter& reporter) {
    reporter.setLayout(layout);
    switch (layout) {
    default:
        return failedImport(FailureReason::notRead, reporter);
    }
}

} // namespace Rellinor
