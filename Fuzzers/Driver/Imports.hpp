#pragma once

#include <string_view>

#include <Rellinor/Rellinor.hpp>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Fuzzers {

/// What importing the file or folder at `path` gives.
///
/// On the way it is expected that the completion is called once; that every text is UTF-8; that the
/// records can be read when the importer is gone, and the last of them when all others are; that a
/// second import gives the same.
[[nodiscard]] Tests::Outcome outcomeOf(ImportSource source, std::string_view path);

} // namespace Rellinor::Fuzzers
