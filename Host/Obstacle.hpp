#pragma once

#include <string>

#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor::Host {

/// Why nothing can be read at `path`, whatever the source, and what to do about it: nothing is
/// there, or neither a file nor a folder, or a file that this user may not read. Empty if there is
/// no such reason.
[[nodiscard]] std::string obstacle(const std::string& path);

/// The same for a source; one that needs a file reads no folder, and the other way round.
[[nodiscard]] std::string obstacle(const std::string& path, ImportSource source);

} // namespace Rellinor::Host
