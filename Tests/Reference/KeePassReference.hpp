#pragma once

#include <string_view>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// What the import of a KeePass or KeePassXC export with this text gives, told step by step on top
/// of the reference of the CSV dialect.
[[nodiscard]] Outcome referenceKeePassImport(std::string_view text);

} // namespace Rellinor::Tests
