#pragma once

#include <string>

#include "Host/Detection/Detection.hpp"

namespace Rellinor::Host {

/// A detection in one line, such as "lastPass (certain): LastPass export; the columns …".
[[nodiscard]] std::string described(const Detection& detection);

/// What a file of a known layout is and what to do with it, such as "this looks like a LastPass
/// export: try --source lastPass".
[[nodiscard]] std::string proposal(const Detection& detection);

} // namespace Rellinor::Host
