#pragma once

#include <set>
#include <string>
#include <string_view>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// What the import of a LastPass export with this text gives, told step by step on top of the
/// reference of the CSV dialect.
///
/// @param urlsOfNotes  the URLs in the text whose host is "sn"
[[nodiscard]] Outcome referenceLastPassImport(std::string_view text,
                                              const std::set<std::string>& urlsOfNotes);

} // namespace Rellinor::Tests
