#pragma once

#include <string>
#include <string_view>

namespace Rellinor::Host {

/// The path of what SQLite keeps beside the database at `path`: `suffix` is "-journal", "-wal" or
/// "-shm". Where `path` is a link, it stands beside what that leads to.
[[nodiscard]] std::string databaseSideFile(const std::string& path, std::string_view suffix);

} // namespace Rellinor::Host
