#pragma once

#include <cstddef>

namespace Rellinor::Benchmarks {

/// The memory that this process uses, from the moment when it was made.
class MemoryUse {
public:
    MemoryUse();

    /// How many bytes it has had in use at most since, above what it had then. Zero where the
    /// system does not tell.
    [[nodiscard]] std::size_t growth() const;

    /// How many pages were given to it since.
    [[nodiscard]] std::size_t faultsSince() const;

private:
    std::size_t _resident;
    std::size_t _faults;
};

} // namespace Rellinor::Benchmarks
