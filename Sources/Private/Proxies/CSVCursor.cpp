#include "Private/Proxies/CSVCursor.hpp"

#include "Private/Text/UTF8.hpp"

namespace Rellinor {

bool CSVCursor::nextRow() noexcept {
    while (_inRow && !isLastOfRow()) {
        findCell();
    }
    _inRow = false;
    while (_cellEnd != _text.size()) {
        findCell();
        // A line with a comma is not blank, so only a row of a single cell can be.
        if (!isLastOfRow() || !isBlank(_text.substr(_cellBegin, _cellEnd - _cellBegin))) {
            _inRow = true;
            _rowBegin = _cellBegin;
            break;
        }
    }
    return _inRow;
}

} // namespace Rellinor
