#pragma once

#include <string>

#include "Host/Detection/Detection.hpp"

namespace Rellinor::Host {

/// A detection in one line, such as "lastPass (certain): LastPass export; the columns …".
[[nodiscard]] std::string described(const Detection& detection);

} // namespace Rellinor::Host
