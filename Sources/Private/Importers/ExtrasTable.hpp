#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <span>
#include <string_view>

#include <Rellinor/Extras.hpp>

#include "Private/Memory/ChunkedList.hpp"

namespace Rellinor {

/// The extras of all records of one kind, by the number of the record. Labels and values are
/// literals or stand in the import's memory. From the first record that has extras on, each takes
/// four bytes here besides them.
class ExtrasTable {
public:
    /// Adds an extra to the record that is being built, unless its value is empty.
    ///
    /// @throws std::bad_alloc
    void add(ExtraKind kind, std::string_view label, std::string_view value) {
        if (value.empty()) {
            return;
        }
        if (_extras.room() == 0) [[unlikely]] {
            makeRoom();
        }
        _extras.appendInRoom({.kind = kind, .label = label, .value = value});
        ++_count;
    }

    /// Ends the record.
    ///
    /// @throws std::bad_alloc  without memory, and beyond four thousand million extras
    void endRecord() {
        if (_end == 0 && _count == 0) {
            ++_recordsBefore;
            return;
        }
        if (_count > std::numeric_limits<std::uint32_t>::max() - _end) {
            throw std::bad_alloc();
        }
        _end += static_cast<std::uint32_t>(_count);
        _count = 0;
        _ends.append(_end);
    }

    /// Those of a record; none beyond the last record.
    [[nodiscard]] std::span<const Extra> operator[](std::size_t record) const noexcept {
        const std::size_t index = record - _recordsBefore;
        if (record < _recordsBefore || index >= _ends.size()) {
            return {};
        }
        const std::uint32_t first = index == 0 ? 0 : _ends[index - 1];
        const std::uint32_t end = _ends[index];
        return first == end ? std::span<const Extra>() : std::span(&_extras[first], end - first);
    }

private:
    /// Moves what the record has to a new chunk, so that it stands behind each other.
    void makeRoom() {
        const std::span<const Extra> extras = _extras.dropLast(_count);
        _extras.addChunk(2 * _count + 1);
        std::ranges::for_each(extras, [&](const Extra& extra) { _extras.appendInRoom(extra); });
    }

    ChunkedList<Extra> _extras;
    std::size_t _count = 0; // of the record that is being built
    ChunkedList<std::uint32_t> _ends;
    std::uint32_t _end = 0;
    std::size_t _recordsBefore = 0; // those before the first that has extras
};

} // namespace Rellinor
