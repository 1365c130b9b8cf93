#pragma once

#include <cstddef>

#include "Host/CSVRows.hpp"
#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// Tells which rows have another number of cells than the first.
class CSVRowLengths {
public:
    explicit CSVRowLengths(const CSVRow& firstRow) : _expected(firstRow.numberOfCells) {}

    void look(const CSVRow& row);
    void report(Inspection& inspection) const;

private:
    std::size_t _expected;
    Remark _fewer{"fewer cells than the first row", {}};
    Remark _more{"more cells than the first row: those at the end are not read", {}};
};

} // namespace Rellinor::Host
