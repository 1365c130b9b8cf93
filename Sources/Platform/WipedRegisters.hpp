#pragma once

namespace Rellinor {

/// Overwrites the registers that a function need not give back as they were, vectors and masks
/// included, as wide as this processor has them: x86-64 and AArch64. Does nothing elsewhere.
///
/// The last to use such a register may have left a secret there, and who saves all registers writes
/// it to the stack: the loader, when a function is looked up at its first call.
[[gnu::noinline]] void wipeRegisters() noexcept;

} // namespace Rellinor
