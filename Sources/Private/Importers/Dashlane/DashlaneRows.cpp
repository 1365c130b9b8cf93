#include "Private/Importers/Dashlane/DashlaneRows.hpp"

namespace Rellinor {

void DashlaneRows::readRow() noexcept {
    do {
        _row.reset();
        if (_rows.nextRow()) {
            _row.emplace(_rows, _search);
        }
    } while (_row && _row->numberOfCells() < fewestCells);
}

} // namespace Rellinor
