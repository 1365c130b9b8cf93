#pragma once

#include <cstddef>

namespace Rellinor {

// A heap for the third-party libraries that put secrets there: what is given back is overwritten.
// In the shape that C libraries ask for.

/// So many bytes, uninitialised; null if there are none.
[[nodiscard]] void* allocateWiped(std::size_t size) noexcept;

/// Another piece with what the old one held, as far as that fits. Null if there is none, and the
/// old one then stays.
///
/// @param memory  from here, or null
[[nodiscard]] void* reallocateWiped(void* memory, std::size_t size) noexcept;

/// Gives a piece back.
///
/// @param memory  from here, or null
void freeWiped(void* memory) noexcept;

} // namespace Rellinor
