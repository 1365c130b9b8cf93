#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Rellinor::Benchmarks {

/// A LastPass export of invented data, about 125 bytes a row: 5 % of the rows are secure notes with
/// multi-line quoted text, 10 % have quoted commas. The same arguments give the same text
/// everywhere.
[[nodiscard]] std::string lastPassExport(std::size_t rows, std::uint64_t seed = 1);

} // namespace Rellinor::Benchmarks
