#pragma once

#include <cstddef>
#include <span>

namespace Rellinor::Tests {

/// The memory that this program gave out through operator new, whether in use or given back. It is
/// never given out again, so that nothing that was left in it is overwritten by chance. What C
/// libraries take is elsewhere.
[[nodiscard]] std::span<const std::byte> ownMemory();

/// Where that is, with what is left.
[[nodiscard]] std::span<const std::byte> placeOfOwnMemory();

/// Lets the heap have no memory for the `nth` piece that it is asked for from now on, counted from
/// 1; 0 ends that.
void failAllocationFromNow(std::size_t nth);

/// How often the heap was asked for memory.
[[nodiscard]] std::size_t allocationsSoFar();

} // namespace Rellinor::Tests
