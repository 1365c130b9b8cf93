#include "Public/ExportReader.hpp"

#include <utility>

#include "Private/Importers/ImporterSlots.hpp"
#include "Private/Importers/LayoutImports.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

namespace {

Assembled readDetected(const ExportFile& file, Reporter& reporter) {
    const Detection found = detect(file);
    const bool isClear = found.layout && found.confidence >= Confidence::likely;
    if (isClear) {
        reporter.setLayout(*found.layout);
    }
    if (found.obstacle != FailureReason::none) {
        return failedImport(found.obstacle, reporter);
    }
    if (!isClear) {
        return failedImport(FailureReason::unknown, reporter);
    }
    return importLayout(file, *found.layout, reporter);
}

Assembled read(const ExportFile& file, const ReadAs& as, Reporter& reporter) {
    if (const auto* const source = std::get_if<ImportSource>(&as)) {
        return ImporterSlots().read(file, *source, &reporter);
    }
    if (const auto* const layout = std::get_if<Layout>(&as)) {
        return importLayout(file, *layout, reporter);
    }
    return readDetected(file, reporter);
}

} // namespace

ImportedExport readExport(const ExportFile& file, const ReadOptions& options) {
    Reporter reporter(options);
    Assembled assembled = read(file, options.as, reporter);
    const bool hasRecords = assembled.records.has_value();
    return {.records = std::move(assembled.records),
            .extras = std::move(assembled.extras),
            .report = reporter.take(hasRecords)};
}

} // namespace Rellinor
