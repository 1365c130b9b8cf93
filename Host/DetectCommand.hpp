#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Host/ReportJSON.hpp"

namespace Rellinor::Host {

/// Shows on `out`, one line for each path, what it most likely is and why, in words or as a JSON
/// object. Returns the exit status: success only if every one can be imported as what it is.
[[nodiscard]] int runDetect(const std::vector<std::string>& paths, Wording wording,
                            std::ostream& out);

} // namespace Rellinor::Host
