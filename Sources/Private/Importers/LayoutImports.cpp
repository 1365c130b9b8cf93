#include "Private/Importers/LayoutImports.hpp"

#include <expected>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/Importer.hpp"
#include "Private/Importers/OnePassword/OnePIFImporter.hpp"
#include "Private/Importers/Tirel/FaithfulTirelImporter.hpp"

namespace Rellinor {

namespace {

template <Importer Source>
Assembled readWithNew(const ExportFile& file, Reporter& reporter) {
    Source source;
    return readWith(source, file, &reporter);
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
    case onePassword1PIF:
        return readWithNew<OnePIFImporter>(file, reporter);
    case tirelJSON:
        return readWithNew<FaithfulTirelImporter>(file, reporter);
    default:
        return failedImport(FailureReason::notRead, reporter);
    }
}

} // namespace Rellinor
