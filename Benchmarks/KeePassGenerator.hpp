#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Rellinor::Benchmarks {

/// A KeePassXC export of invented data, about 150 bytes a row: every cell is quoted, 10 % of the
/// rows have notes of several lines. The same arguments give the same text everywhere.
[[nodiscard]] std::string keePassXCExport(std::size_t rows, std::uint64_t seed = 1);

/// An export of the classic fork, about 140 bytes a row: five columns, without the group.
[[nodiscard]] std::string keePassExport(std::size_t rows, std::uint64_t seed = 1);

} // namespace Rellinor::Benchmarks
