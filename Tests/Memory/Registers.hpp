#pragma once

namespace Rellinor::Tests {

/// Writes what the registers hold, as far as the processor can tell it in one piece, to a place
/// where a search of the memory finds it. That is what the loader does on the stack when a function
/// is called for the first time.
void keepRegisters() noexcept;

} // namespace Rellinor::Tests
