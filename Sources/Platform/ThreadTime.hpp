#pragma once

#include <chrono>

namespace Rellinor {

/// For how long a processor has worked for the calling thread. The difference of two of these does
/// not grow while other threads and programs have the processor.
[[nodiscard]] std::chrono::nanoseconds threadTime() noexcept;

} // namespace Rellinor
