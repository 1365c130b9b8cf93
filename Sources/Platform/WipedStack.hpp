#pragma once

#include <cstddef>

namespace Rellinor {

/// Overwrites `size` bytes of the stack below the caller's frame. Functions that the caller has
/// called, and that have returned, may have left secrets there.
void wipeStack(std::size_t size) noexcept;

} // namespace Rellinor
