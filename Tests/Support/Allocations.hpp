#pragma once

#include <cstddef>
#include <functional>

namespace Rellinor::Tests {

/// How many times `work` asks the heap for memory.
[[nodiscard]] std::size_t allocationsOf(const std::function<void()>& work);

/// Runs `work` and looks at all memory that it gives back to the heap with a size of at least
/// `smallest` bytes, just before it is given back. Whether every byte of every such piece was zero;
/// false if there was no such piece.
[[nodiscard]] bool givesBackZeros(std::size_t smallest, const std::function<void()>& work);

} // namespace Rellinor::Tests
