#pragma once

#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Fault.hpp"
#include "Platform/LargeMemory.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/SQLiteRow.hpp"
#include "Private/Proxies/SQLiteValue.hpp"

namespace Rellinor {

/// The rows that a query gave, in their order. Many of them share a list of values, so that a row
/// costs no allocation of its own and a long list is never copied over.
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
        if (_size % rowsPerChunk == 0) {
            addChunk();
        }
        _chunks.back().insert(_chunks.back().end(), values.begin(), values.end());
        ++_size;
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
    using Chunk = std::vector<SQLiteValue, LargeMemoryAllocator<SQLiteValue>>;

    [[nodiscard]] SQLiteRow row(std::size_t index) const noexcept {
        const std::size_t columns = _names.size();
        const std::span<const SQLiteValue> chunk = _chunks[index / rowsPerChunk];
        return {_names, chunk.subspan(index % rowsPerChunk * columns, columns), *_memory};
    }

    void addChunk() {
        Chunk& chunk = _chunks.emplace_back();
        if (_size > 0) { // the first grows by itself: most results are small
            chunk.reserve(rowsPerChunk * _names.size());
        }
    }

    static constexpr std::size_t rowsPerChunk = 65536;

    ImportMemory* _memory;
    std::vector<std::string_view> _names;
    std::vector<Chunk> _chunks; // of so many rows each, but the last
    std::size_t _size = 0;
};

} // namespace Rellinor
