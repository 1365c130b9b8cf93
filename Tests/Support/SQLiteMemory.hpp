#pragma once

#include <cstddef>
#include <functional>

namespace Rellinor::Tests {

// SQLite takes its memory not from the heap of C++, but from an allocator of its own.

/// How many times `work` makes SQLite ask for memory.
[[nodiscard]] std::size_t sqliteAllocationsOf(const std::function<void()>& work);

/// Runs `work`, in which there is no memory for the `nth` piece that SQLite asks for, counted from
/// 1.
void failSQLiteAllocation(std::size_t nth, const std::function<void()>& work);

/// Runs `work`, in which there is no memory for that piece nor for any later one.
void failSQLiteAllocationsFrom(std::size_t nth, const std::function<void()>& work);

} // namespace Rellinor::Tests
