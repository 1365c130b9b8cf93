#pragma once

#include <cstddef>
#include <filesystem>

namespace Rellinor::Benchmarks {

/// The least work that any import does, against which imports are measured: reads the file once
/// into uninitialised memory, validates it as UTF-8 and copies as many bytes as are delivered once.
///
/// @return a byte of the copy, so that nothing is optimised away
char floorOf(const std::filesystem::path& file, std::size_t deliveredBytes);

} // namespace Rellinor::Benchmarks
