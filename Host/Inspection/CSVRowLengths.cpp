#include "Host/Inspection/CSVRowLengths.hpp"

#include "Host/Inspection/CSVInspection.hpp"

namespace Rellinor::Host {

void CSVRowLengths::look(const CSVRow& row) {
    if (row.numberOfCells != _expected) {
        addOnce(row.numberOfCells < _expected ? _fewer : _more, row.line);
    }
}

void CSVRowLengths::report(Inspection& inspection) const {
    addIfAnywhere(inspection.wrong, _fewer);
    addIfAnywhere(inspection.wrong, _more);
}

} // namespace Rellinor::Host
