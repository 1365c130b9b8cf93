#pragma once

#include <string>
#include <vector>

namespace Rellinor::Tests {

/// How a process ended and what it wrote.
struct Ended {
    int status = -1; ///< its exit status; -1 if it did not exit by itself
    std::string out;
    std::string errors;
};

/// Runs a program to its end, with nothing on its standard input.
///
/// @param output  where its standard output goes; if empty it is captured
[[nodiscard]] Ended run(const std::string& program, std::vector<std::string> arguments,
                        const std::string& output = "");

} // namespace Rellinor::Tests
