#pragma once

#include <cstdint>

namespace Rellinor {

/// Whether SQLite can have so many bytes now; for more than a GiB, whether it can have that.
[[nodiscard]] bool hasMemory(std::int64_t size) noexcept;

} // namespace Rellinor
