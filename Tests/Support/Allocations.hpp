#pragma once

#include <cstddef>
#include <functional>

namespace Rellinor::Tests {

/// How many times `work` asks the heap for memory.
[[nodiscard]] std::size_t allocationsOf(const std::function<void()>& work);

/// How many pieces of memory the heap has given out and not taken back.
[[nodiscard]] std::size_t piecesInUse();

/// Runs `work`, in which the heap has no memory for the `nth` piece that it is asked for, counted
/// from 1.
void failAllocation(std::size_t nth, const std::function<void()>& work);

/// Runs `work`, in which the heap has no memory for that piece nor for any later one.
void failAllocationsFrom(std::size_t nth, const std::function<void()>& work);

/// Runs `work` and looks at each piece of memory of exactly `size` bytes that it gives back to the
/// heap, just before it is given back. Whether every byte of all of them was zero; false if there
/// was no such piece.
[[nodiscard]] bool givesBackZeros(std::size_t size, const std::function<void()>& work);

} // namespace Rellinor::Tests
