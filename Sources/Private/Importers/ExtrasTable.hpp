#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <span>

#include <Rellinor/Extras.hpp>

#include "Private/Memory/ChunkedList.hpp"

namespace Rellinor {

/// The extras of all records of one kind, by the number of the record. From the first record that
/// has extras on, each takes four bytes here besides them.
class ExtrasTable {
public:
    /// Those of the next record.
    ///
    /// @throws std::bad_alloc  without memory, and beyond four thousand million extras
    void append(std::span<const Extra> extras) {
        if (_end == 0 && extras.empty()) {
            ++_recordsBefore;
            return;
        }
        if (extras.size() > std::numeric_limits<std::uint32_t>::max() - _end) {
            throw std::bad_alloc();
        }
        (void)_extras.append(extras);
        _end += static_cast<std::uint32_t>(extras.size());
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
    ChunkedList<Extra> _extras; // those of one record stand behind each other
    ChunkedList<std::uint32_t> _ends;
    std::size_t _recordsBefore = 0; // those before the first that has extras
    std::uint32_t _end = 0;
};

} // namespace Rellinor
