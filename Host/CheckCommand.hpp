#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor::Host {

/// Shows on `out`, for each path, how much of it an import would bring along, what it would leave
/// out and why, and what looks wrong with the file.
///
/// @param source  the product that wrote the files; absent to find out for each
/// @return the exit status: success only if everything would arrive and nothing looks wrong
[[nodiscard]] int runCheck(const std::vector<std::string>& paths,
                           std::optional<ImportSource> source, std::ostream& out);

} // namespace Rellinor::Host
