#pragma once

#include <optional>
#include <string_view>

#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// What is wrong with the encoding of a text that ought to be UTF-8, and on which line; absent if
/// nothing is.
[[nodiscard]] std::optional<Remark> encodingProblem(std::string_view text);

} // namespace Rellinor::Host
