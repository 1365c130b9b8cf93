#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>

#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"
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

/// The rows of a Dashlane export, made one by one while they are walked: a single pass. A row lasts
/// until the next one is made, its cells as long as the text.
class DashlaneRows {
public:
    /// @param rows  stands before the first row
    explicit DashlaneRows(const CSVCursor& rows) noexcept : _rows(rows) {}

    DashlaneRows(const DashlaneRows&) = delete; // the rows point into it
    DashlaneRows& operator=(const DashlaneRows&) = delete;
    ~DashlaneRows() = default;

    class Iterator {
    public:
        using value_type = DashlaneRow;
        using difference_type = std::ptrdiff_t;

        explicit Iterator(DashlaneRows& rows) : _rows(&rows) { ++*this; }

        [[nodiscard]] const DashlaneRow& operator*() const noexcept { return *_rows->_row; }

        Iterator& operator++() noexcept {
            _rows->readRow();
            return *this;
        }

        void operator++(int) noexcept { ++*this; }

        [[nodiscard]] bool operator==(std::default_sentinel_t /*end*/) const noexcept {
            return !_rows->_row;
        }

    private:
        DashlaneRows* _rows;
    };

    [[nodiscard]] Iterator begin() noexcept { return Iterator(*this); }

    [[nodiscard]] static std::default_sentinel_t end() noexcept { return {}; }

    /// Where the row that was read last begins in the text.
    [[nodiscard]] std::size_t position() const noexcept { return _rows.rowBegin(); }

private:
    /// Goes to the next row; there is none behind the last.
    void readRow() noexcept {
        _row.reset();
        if (_rows.nextRow()) {
            _row.emplace(_rows, _search);
        }
    }

    CSVCursor _rows;
    DashlaneIdentifierSearch _search;
    std::optional<DashlaneRow> _row;
};

} // namespace Rellinor
