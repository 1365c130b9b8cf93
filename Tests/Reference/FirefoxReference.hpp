#pragma once

#include <string_view>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// What the import of a profile whose "logins.json" has these bytes gives, told step by step.
[[nodiscard]] Outcome referenceFirefoxImport(std::string_view bytes);

} // namespace Rellinor::Tests
