#pragma once

#include <string>

namespace Rellinor::Host {

/// The address of a database by which SQLite takes its file for one that never changes: nothing is
/// locked, and no file is made beside it. To be opened with `SQLITE_OPEN_URI`.
[[nodiscard]] std::string immutableAddress(const std::string& path);

} // namespace Rellinor::Host
