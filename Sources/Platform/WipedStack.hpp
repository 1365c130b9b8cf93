#pragma once

#include <cstddef>

namespace Rellinor {

/// Overwrites so much of the stack, from the caller's end on, where calls that have returned left
/// what they had.
void wipeStack(std::size_t size) noexcept;

} // namespace Rellinor
