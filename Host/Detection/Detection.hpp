#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor::Host {

/// How sure a detection is.
enum class Confidence : std::uint8_t {
    possible, ///< nothing speaks against it
    likely,   ///< it has the shape, but others might have it too
    certain,  ///< names that nothing else is known to use
};

/// What a file or folder most likely is.
struct Detection {
    std::string layout;                 ///< such as "LastPass export"; empty if unknown
    std::optional<ImportSource> source; ///< what reads it; absent if nothing here does
    Confidence confidence = Confidence::possible;
    std::string reason; ///< what tells, without any of the contents
    std::string advice; ///< what to do with what is known but not read; empty otherwise
    /// What would read it if its columns or lines were as expected.
    std::optional<ImportSource> nearly = std::nullopt;
};

/// Looks at the file or folder at `path`, and changes nothing there.
[[nodiscard]] Detection detect(const std::string& path);

} // namespace Rellinor::Host
