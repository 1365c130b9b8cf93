#pragma once

#include <cstddef>
#include <span>

namespace Rellinor::Tests {

/// The memory that SQLite has of this program, which gives it out again as a heap does, and that
/// nothing else is given.
[[nodiscard]] std::span<const std::byte> sqliteArena();

/// Where that is, with what is left.
[[nodiscard]] std::span<const std::byte> placeOfSQLiteArena();

} // namespace Rellinor::Tests
