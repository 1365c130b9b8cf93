#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace Rellinor::Tests {

/// The bytes of files, by their names.
using Files = std::map<std::string, std::string>;

/// The files in a folder.
[[nodiscard]] Files filesIn(const std::filesystem::path& folder);

/// Whether a folder with a database is as it was, but for what SQLite needs to read a write-ahead
/// log: an index of it, and a log without anything in it where there was none.
[[nodiscard]] bool areReadOnly(const Files& before, const Files& after);

} // namespace Rellinor::Tests
