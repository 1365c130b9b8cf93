#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "Private/Proxies/CSVColumns.hpp"
#include "Private/Proxies/CSVCursor.hpp"
#include "Private/Proxies/CSVRecord.hpp"

namespace Rellinor {

/// The data rows of a CSV text as records, made one by one while they are walked: a single pass,
/// and each record lasts until the next. Its cells last as long as the text.
class CSVKeyedRecords {
public:
    /// @param rows  stands before the first data row
    CSVKeyedRecords(CSVCursor rows, CSVColumns columns)
        : _rows(rows), _columns(std::move(columns)), _cells(_columns.emptyRow().size()) {}

    class Iterator {
    public:
        using value_type = CSVRecord;
        using difference_type = std::ptrdiff_t;

        explicit Iterator(CSVKeyedRecords& records) noexcept : _records(&records) { ++*this; }

        [[nodiscard]] CSVRecord operator*() const noexcept { return CSVRecord(_records->_cells); }

        Iterator& operator++() noexcept {
            _atEnd = !_records->readRow();
            return *this;
        }

        void operator++(int) noexcept { ++*this; }

        [[nodiscard]] bool operator==(std::default_sentinel_t /*end*/) const noexcept {
            return _atEnd;
        }

    private:
        CSVKeyedRecords* _records;
        bool _atEnd = false;
    };

    [[nodiscard]] Iterator begin() noexcept { return Iterator(*this); }

    [[nodiscard]] static std::default_sentinel_t end() noexcept { return {}; }

    /// Where the record that was read last begins in the text.
    [[nodiscard]] std::size_t position() const noexcept { return _rows.rowBegin(); }

private:
    [[nodiscard]] bool readRow() noexcept;

    CSVCursor _rows;
    CSVColumns _columns;
    std::vector<std::string_view> _cells; // of the current row, one for each key
};

} // namespace Rellinor
