#pragma once

#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Fault.hpp"
#include "Private/Memory/ChunkedList.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/SQLiteRow.hpp"
#include "Private/Proxies/SQLiteValue.hpp"

namespace Rellinor {

/// The rows that a query gave, in their order. All rows share one list of values: a row costs no
/// allocation of its own.
class SQLiteRows {
public:
    /// No rows yet.
    ///
    /// @param memory  outlives the rows; their texts and bytes belong to it
    explicit SQLiteRows(ImportMemory& memory) noexcept : _memory(&memory) {}

    /// Names the columns; to be called before the first row is appended.
    void nameColumns(std::vector<std::string_view> names) noexcept { _names = std::move(names); }

    /// Appends a row, with its values in the order of the columns.
    ///
    /// @throws std::bad_alloc
    void append(std::span<const SQLiteValue> values) {
        require(values.size() == _names.size());
        _values.append(values);
        ++_size;
    }

    [[nodiscard]] std::size_t size() const noexcept { return _size; }

    class Iterator {
    public:
        using value_type = SQLiteRow;
        using difference_type = std::ptrdiff_t;

        Iterator() noexcept = default;

        /// @param index  of the first row, or behind the last
        Iterator(const SQLiteRows& rows, std::size_t index) noexcept : _rows(&rows), _index(index) {
            enterChunk(0);
        }

        [[nodiscard]] SQLiteRow operator*() const noexcept {
            return {_rows->_names, _rest.first(_rows->_names.size()), *_rows->_memory};
        }

        Iterator& operator++() noexcept {
            ++_index;
            _rest = _rest.subspan(_rows->_names.size());
            if (_rest.empty()) {
                enterChunk(_chunk + 1);
            }
            return *this;
        }

        Iterator operator++(int) noexcept {
            const Iterator before = *this;
            ++*this;
            return before;
        }

        [[nodiscard]] bool operator==(const Iterator& other) const noexcept {
            return _index == other._index;
        }

    private:
        void enterChunk(std::size_t chunk) noexcept {
            _chunk = chunk;
            if (chunk < _rows->_values.numberOfChunks()) {
                _rest = _rows->_values.chunk(chunk);
            }
        }

        const SQLiteRows* _rows = nullptr;
        std::size_t _index = 0;
        std::size_t _chunk = 0;
        std::span<const SQLiteValue> _rest; // of the chunk, from the row's first value on
    };

    [[nodiscard]] Iterator begin() const noexcept { return {*this, 0}; }

    [[nodiscard]] Iterator end() const noexcept { return {*this, _size}; }

private:
    ImportMemory* _memory;
    std::vector<std::string_view> _names;
    ChunkedList<SQLiteValue> _values; // of all rows; those of one row stand behind each other
    std::size_t _size = 0;
};

} // namespace Rellinor
