#pragma once

#include <cstddef>
#include <functional>

namespace Rellinor::Benchmarks {

/// How many bytes of memory `work` has in use at its peak, above what the process had before.
///
/// Runs it in a process of its own. Zero where the system does not tell.
[[nodiscard]] std::size_t peakMemoryOf(const std::function<void()>& work);

} // namespace Rellinor::Benchmarks
