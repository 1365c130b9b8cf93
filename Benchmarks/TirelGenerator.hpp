#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Rellinor::Benchmarks {

/// A Tirel export of invented data, about 220 bytes a record: logins, with a note for every tenth
/// and a card for every twentieth. The same arguments give the same text everywhere.
[[nodiscard]] std::string tirelExport(std::size_t records, std::uint64_t seed = 1);

} // namespace Rellinor::Benchmarks
