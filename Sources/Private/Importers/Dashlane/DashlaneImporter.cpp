#include "Private/Importers/Dashlane/DashlaneImporter.hpp"

#include <cstddef>

#include "Private/Extensions/String.hpp"
#include "Private/Proxies/CSVFileProxy.hpp"

namespace Rellinor {

DashlaneRows DashlaneImporter::read(const URL& url, ImportMemory& memory) {
    CSVFileProxy file(url, memory);
    const auto rows = file.records();
    if (!rows) {
        throw TextError("failed to import dashlane records - not csv");
    }
    // Quirk: a header line is a row like any other.
    return DashlaneRows(*rows);
}

// Quirk: an identifier may begin in one cell and end in the next.
bool DashlaneImporter::isPassword(const RawRecord& record) {
    constexpr std::size_t fewestCells = 5;

    return record.numberOfCells() >= fewestCells && !record.holdsIdentifier();
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
