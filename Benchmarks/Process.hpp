#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "Benchmarks/Run.hpp"

namespace Rellinor::Benchmarks {

/// Measures in a copy of this process, which ends with that: fresh memory costs everybody the same.
/// Failures are thrown.
[[nodiscard]] Run inChild(const std::function<Run()>& measure);

/// The run that a program measured itself. It prints the members of a `Run` in their order.
/// Failures are thrown.
///
/// @param command  the program, and its arguments
[[nodiscard]] Run byProgram(const std::vector<std::string>& command);

} // namespace Rellinor::Benchmarks
