#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Fault.hpp"
#include "Private/Importers/ImportMemory.hpp"
#include "Private/Proxies/SQLiteRow.hpp"
#include "Private/Proxies/SQLiteValue.hpp"

namespace Rellinor {

/// The rows that a query gave, in their order. They stand in one list of values, so that a row
/// costs no allocation of its own.
class SQLiteRows {
public:
    /// No rows yet.
    ///
    /// @param memory  outlives the rows; their texts and bytes belong to it
    explicit SQLiteRows(ImportMemory& memory) noexcept : _memory(&memory) {}

    /// Names the columns; to be called before the first row is appended.
    void nameColumns(std::vector<std::string_view> names) noexcept { _names = std::move(names); }

    /// Appends one value; those of a row follow each other in the order of the columns.
    ///
    /// @throws std::bad_alloc
    void append(SQLiteValue value) { _values.push_back(value); }

    /// Ends a row.
    void endRow() noexcept {
        ++_size;
        require(_values.size() == _size * _names.size());
    }

    [[nodiscard]] std::size_t size() const noexcept { return _size; }

    class Iterator {
    public:
        using value_type = SQLiteRow;
        using difference_type = std::ptrdiff_t;

        Iterator() noexcept = default;

        Iterator(const SQLiteRows& rows, std::size_t index) noexcept
            : _rows(&rows), _index(index) {}

        [[nodiscard]] SQLiteRow operator*() const noexcept { return _rows->row(_index); }

        Iterator& operator++() noexcept {
            ++_index;
            return *this;
        }

        Iterator operator++(int) noexcept { return {*_rows, _index++}; }

        [[nodiscard]] bool operator==(const Iterator&) const noexcept = default;

    private:
        const SQLiteRows* _rows = nullptr;
        std::size_t _index = 0;
    };

    [[nodiscard]] Iterator begin() const noexcept { return {*this, 0}; }

    [[nodiscard]] Iterator end() const noexcept { return {*this, _size}; }

private:
    [[nodiscard]] SQLiteRow row(std::size_t index) const noexcept {
        const std::size_t columns = _names.size();
        return {_names, std::span(_values).subspan(index * columns, columns), *_memory};
    }

    ImportMemory* _memory;
    std::vector<std::string_view> _names;
    std::vector<SQLiteValue> _values;
    std::size_t _size = 0;
};

} // namespace Rellinor
