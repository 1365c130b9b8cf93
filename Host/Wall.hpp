#pragma once

#include <string>
#include <vector>

namespace Rellinor::Host {

/// What a process still does behind its wall.
struct WallGates {
    /// Puts a file that is open already in its place in this folder, which may be "."; empty if
    /// there is none.
    std::string output;

    /// Writes, makes and removes files in these folders: SQLite takes back what a browser broke
    /// off, and makes files beside a database.
    std::vector<std::string> databases;
};

/// Walls this process in for the rest of its life, before it reads what a stranger wrote: it
/// connects to nothing, starts nothing, looks into no other process, and changes no file but
/// through a gate. What it has open already stays as it is, and it reads what it could read before.
///
/// The system calls are stopped by a filter, and folders told apart by Landlock, where the tool is
/// built with them and the system has them. Elsewhere there is no wall.
///
/// @throws std::bad_alloc
void wallIn(const WallGates& gates);

/// The folder in which SQLite works on a database, at the end of all links.
[[nodiscard]] std::string folderOfDatabase(const std::string& path);

} // namespace Rellinor::Host
