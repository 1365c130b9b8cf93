#include "Private/Importers/Dashlane/DashlaneImporter.hpp"

#include <cstddef>

#include "Private/Extensions/String.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/CSVFileProxy.hpp"

namespace Rellinor {

namespace {

constexpr std::size_t fewestCells = 5;

} // namespace

DashlaneRows DashlaneImporter::read(const ExportFile& file, ImportMemory& memory,
                                    Reporter* reporter) {
    CSVFileProxy proxy(file, memory, largestFileFor(reporter));
    const auto rows = proxy.records();
    if (!rows) {
        reportFailure(proxy, FailureReason::notUTF8, reporter);
        throw TextError("failed to import dashlane records - not csv");
    }
    reportLines(proxy, reporter);
    // Quirk: a header line is a row like any other.
    return DashlaneRows(*rows);
}

// Quirk: an identifier may begin in one cell and end in the next.
bool DashlaneImporter::isPassword(const RawRecord& record) {
    return record.numberOfCells() >= fewestCells && !record.holdsIdentifier();
}

Dropped DashlaneImporter::whyNoKind(const RawRecord& record) noexcept {
    const bool isShort = record.numberOfCells() < fewestCells;
    return {.reason = isShort ? LeftOutReason::tooFewCells : LeftOutReason::bracedIdentifier,
            .field = {}};
}

void DashlaneImporter::tellUnread(const RawRecord& record, Reporter& reporter) {
    reporter.unread("last cell");
    if (record.numberOfCells() > fewestCells) {
        reporter.unread("cells between user name and password");
    }
}

Built<ImportedPassword> DashlaneImporter::buildPassword(const RawRecord& record) noexcept {
    return ImportedPassword{
        record.thirdCell(),      // username
        record.lastButOneCell(), // password
        record.secondCell(),     // url
        record.firstCell(),      // service
    };
}

} // namespace Rellinor
