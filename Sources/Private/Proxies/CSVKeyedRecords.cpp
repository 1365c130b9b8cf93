#include "Private/Proxies/CSVKeyedRecords.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace Rellinor {

bool CSVKeyedRecords::readRow() noexcept {
    if (!_rows.nextRow()) {
        return false;
    }
    std::ranges::copy(_columns.emptyRow(), _cells.begin());
    std::size_t nextPosition = 0;
    std::optional<std::string_view> cell;
    for (const CSVColumns::Column& column : _columns.columns()) {
        for (; nextPosition <= column.position; ++nextPosition) {
            cell = _rows.nextCell();
            if (!cell) {
                return true;
            }
        }
        _cells[column.key] = *cell;
    }
    return true;
}

} // namespace Rellinor
