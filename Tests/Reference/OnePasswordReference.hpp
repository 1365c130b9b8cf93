#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Tests/Reference/JSONReference.hpp"
#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// The JSON value that a PIF file with these bytes is, with its records under a key; absent if
/// there is none.
[[nodiscard]] std::optional<JSONReferenceValue> referencePIF(std::string_view bytes,
                                                             const std::string& topLevelKey);

/// What the import of a 1Password export with these bytes gives, told step by step.
[[nodiscard]] Outcome referenceOnePasswordImport(std::string_view bytes);

} // namespace Rellinor::Tests
