#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "Benchmarks/Run.hpp"

namespace Rellinor::Benchmarks {

/// Measures in a copy of this process, which ends with that: fresh memory costs everybody the same.
/// Failures are thrown.
[[nodiscard]] Run inChild(const std::function<Run()>& measure);

/// Touches so many bytes in a process of its own, which gives them back. The host of a virtual
/// machine takes over memory that has been free for a while, in large pieces, and then who gets it
/// next pays many times over. So who is measured next gets memory that nobody had to fetch, in
/// large pages and in small ones: the system keeps what it can give out as large pages by itself.
void haveMemoryAtHand(std::size_t bytes);

/// The run that a program measured itself. It prints the members of a `Run` in their order.
/// Failures are thrown.
///
/// @param command  the program, and its arguments
[[nodiscard]] Run byProgram(const std::vector<std::string>& command);

} // namespace Rellinor::Benchmarks
