#pragma once

#include <string>

namespace Rellinor::Host {

/// What a process still does behind its wall.
struct WallGates {
    /// Puts a file that is open already in its place in this folder, which may be "."; empty if
    /// there is none.
    std::string output;

    /// Changes any file: SQLite takes back what a browser broke off, and makes files beside a
    /// database that it reads in its place.
    bool isOpenToFiles = false;
};

/// Walls this process in for the rest of its life, before it reads what a stranger wrote: it
/// connects to nothing, starts nothing, looks into no other process, and changes no file but
/// through a gate. What it has open already stays as it is, and it reads what it could read before.
///
/// On Linux libseccomp stops the system calls if the tool is built with it, and Landlock tells
/// folders apart if the system has it. Elsewhere there is no wall.
///
/// @throws std::bad_alloc
void wallIn(const WallGates& gates);

} // namespace Rellinor::Host
