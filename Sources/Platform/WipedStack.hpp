#pragma once

namespace Rellinor {

/// Overwrites 16 KiB of the stack below the caller's frame, more than an import takes, and the
/// registers (`wipeRegisters`). Functions that the caller has called, and that have returned, may
/// have left secrets there.
void wipeStack() noexcept;

} // namespace Rellinor
