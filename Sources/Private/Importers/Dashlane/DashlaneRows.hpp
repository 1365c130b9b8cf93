#pragma once

#include <cstddef>
#include <iterator>
#include <optional>

#include "Private/Importers/Dashlane/DashlaneIdentifierSearch.hpp"
#include "Private/Importers/Dashlane/DashlaneRow.hpp"
#include "Private/Proxies/CSVCursor.hpp"

namespace Rellinor {

/// The rows of a Dashlane export that are long enough, made one by one while they are walked: a
/// single pass, and each row lasts until the next. Its cells last as long as the text.
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

    /// A login has at least so many cells.
    static constexpr std::size_t fewestCells = 5;

private:
    /// Goes to the next row that is long enough; there is no row behind the last.
    void readRow() noexcept;

    CSVCursor _rows;
    DashlaneIdentifierSearch _search;
    std::optional<DashlaneRow> _row;
};

} // namespace Rellinor
