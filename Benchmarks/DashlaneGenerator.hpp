#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Rellinor::Benchmarks {

/// A Dashlane export of invented data, about 115 bytes a row: 5 % of the rows carry an identifier
/// in braces, 5 % are too short for a login, 10 % have quoted commas, and about every seventh
/// password has a brace. The same arguments give the same text everywhere.
[[nodiscard]] std::string dashlaneExport(std::size_t rows, std::uint64_t seed = 1);

} // namespace Rellinor::Benchmarks
