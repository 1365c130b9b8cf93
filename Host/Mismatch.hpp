#pragma once

#include <string>

#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor::Host {

/// That a file looks like something else than what it is taken for.
struct Mismatch {
    std::string proposal; ///< what it looks like and what to do then; empty if it is no such file
    /// Whether it is what it is taken for but for its columns or lines, of which an inspection
    /// tells more.
    bool isNearlyRight = false;
};

/// Looks whether the file or folder at `path` is rather something else than what `source` reads.
[[nodiscard]] Mismatch mismatch(const std::string& path, ImportSource source);

} // namespace Rellinor::Host
