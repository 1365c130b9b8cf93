#pragma once

#include <cstddef>

namespace Rellinor::Tests {

/// How many files this process has open.
[[nodiscard]] std::size_t openDescriptors();

/// Lets this process have so many files open; whether the system allows it.
[[nodiscard]] bool allowDescriptors(std::size_t count);

} // namespace Rellinor::Tests
