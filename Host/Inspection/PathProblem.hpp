#pragma once

#include <string>
#include <string_view>

namespace Rellinor::Host {

/// Why no file can be read at `path`, and what to do; empty if one can, and for a pipe or device,
/// which is left to the import.
///
/// @param file  what to give instead of a folder, such as "the file data.1pif in it"
[[nodiscard]] std::string pathProblem(const std::string& path, std::string_view file);

} // namespace Rellinor::Host
