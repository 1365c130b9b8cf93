#pragma once

#include <cstdint>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Fuzzers {

/// Whether a file reads as the same each time.
enum class Contents : std::uint8_t { same, other };

/// What importing the file or folder at `path` gives.
///
/// On the way it is expected that the completion is called once; that every text is UTF-8; that the
/// records can be read when the importer is gone, and the last of them when all others are; that a
/// second import gives the same, unless the file is a damaged database.
[[nodiscard]] Tests::Outcome outcomeOf(ImportSource source, std::string_view path,
                                       Contents contents = Contents::same);

/// Expects the faithful reading of a text to account for every raw record, and to give UTF-8.
void expectAccountedFor(Layout layout, std::string_view text);

} // namespace Rellinor::Fuzzers
