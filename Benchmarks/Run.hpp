#pragma once

#include <cstddef>

namespace Rellinor::Benchmarks {

/// How much somebody has made of a store.
struct Delivered {
    std::size_t logins = 0;
    std::size_t notes = 0;
    std::size_t cards = 0;

    /// Those of all texts together.
    std::size_t bytes = 0;

    [[nodiscard]] std::size_t records() const { return logins + notes + cards; }

    bool operator==(const Delivered&) const = default;
};

/// For one who only tells how much it is.
inline Delivered deliveredBy(const Delivered& delivered) {
    return delivered;
}

/// What one run took.
struct Run {
    double seconds = 0;

    /// Bytes in use at the peak, above what the process had before. Zero where the system does not
    /// tell.
    std::size_t peakMemory = 0;

    /// Pages of memory that the process did not have before.
    std::size_t pageFaults = 0;

    Delivered delivered;
};

} // namespace Rellinor::Benchmarks
