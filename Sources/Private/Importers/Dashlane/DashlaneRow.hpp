#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "Private/Importers/Dashlane/DashlaneIdentifierSearch.hpp"
#include "Private/Proxies/CSVCursor.hpp"

namespace Rellinor {

/// One row of a Dashlane export as a list of cells, without storing them: those that are read stand
/// at its two ends.
class DashlaneRow {
public:
    /// Walks the row that `rows` has just come to, up to its end.
    ///
    /// @param search  outlives the row
    DashlaneRow(CSVCursor& rows, DashlaneIdentifierSearch& search) noexcept;

    [[nodiscard]] std::size_t numberOfCells() const noexcept { return _numberOfCells; }

    // Each is empty if the row has no such cell.

    [[nodiscard]] std::string_view firstCell() const noexcept { return _firstCells[0]; }

    [[nodiscard]] std::string_view secondCell() const noexcept { return _firstCells[1]; }

    [[nodiscard]] std::string_view thirdCell() const noexcept { return _firstCells[2]; }

    [[nodiscard]] std::string_view lastButOneCell() const noexcept { return _lastButOneCell; }

    /// Whether its cells, joined without anything between them, hold an identifier in braces.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool holdsIdentifier() const;

private:
    CSVCursor _cells; // before the first of them
    DashlaneIdentifierSearch* _search;
    std::size_t _numberOfCells = 0;
    std::array<std::string_view, 3> _firstCells;
    std::string_view _lastButOneCell;
    std::string_view _lastCell;
};

} // namespace Rellinor
