#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace Rellinor {

/// On which line of a 1PIF file each record stands. Takes memory only where other lines part
/// records.
class PIFLines {
public:
    /// Adds the next record.
    ///
    /// @param line  from 1 on; greater than that of the record before
    /// @throws std::bad_alloc
    void add(std::uint64_t line) {
        ++_records;
        if (_runs.empty() || line != lineOf(_records)) {
            _runs.push_back({.record = _records, .line = line});
        }
    }

    /// The line of a record, both counted from 1 on. A record that was not added is taken to stand
    /// behind the last one.
    [[nodiscard]] std::uint64_t lineOf(std::uint64_t record) const noexcept {
        const auto behind = std::ranges::upper_bound(_runs, record, {}, &Run::record);
        if (behind == _runs.begin()) {
            return record;
        }
        const Run& run = *(behind - 1);
        return run.line + (record - run.record);
    }

private:
    /// Records on consecutive lines.
    struct Run {
        std::uint64_t record = 0; ///< the first
        std::uint64_t line = 0;   ///< of the first
    };

    std::vector<Run> _runs;
    std::uint64_t _records = 0;
};

} // namespace Rellinor
