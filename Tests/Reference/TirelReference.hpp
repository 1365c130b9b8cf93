#pragma once

#include <string_view>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// What the import of a Tirel export with these bytes gives, told step by step.
[[nodiscard]] Outcome referenceTirelImport(std::string_view bytes);

} // namespace Rellinor::Tests
