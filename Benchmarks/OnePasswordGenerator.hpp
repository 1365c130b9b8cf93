#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Rellinor::Benchmarks {

/// A 1PIF export of invented data, about 550 bytes a record: 10 % are secure notes, 10 % of a type
/// that is left out, the others web forms. The same arguments give the same text everywhere.
[[nodiscard]] std::string onePasswordExport(std::size_t records, std::uint64_t seed = 1);

} // namespace Rellinor::Benchmarks
