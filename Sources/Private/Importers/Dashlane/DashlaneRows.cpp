#include "Private/Importers/Dashlane/DashlaneRows.hpp"

#include <utility>

namespace Rellinor {

DashlaneRow::DashlaneRow(CSVCursor& rows, DashlaneIdentifierSearch& search) noexcept
    : _cells(rows), _search(&search) {
    std::string_view last;
    while (const auto cell = rows.nextCell()) {
        if (_numberOfCells < _firstCells.size()) {
            _firstCells[_numberOfCells] = *cell;
        }
        _lastButOneCell = std::exchange(last, *cell);
        ++_numberOfCells;
    }
    _lastCell = last;
}

bool DashlaneRow::holdsIdentifier() const {
    return _search->finds(_cells, {_firstCells[0].begin(), _lastCell.end()});
}

} // namespace Rellinor
