#pragma once

#include <source_location>
#include <string_view>

namespace Rellinor::Fuzzers {

/// What a target does with one input. Each target defines it; the driver calls it.
///
/// @param input  in a heap buffer of exactly its size, so that a sanitizer sees a byte read too
/// many
void fuzz(std::string_view input);

/// Stops the target, which counts as a finding, unless what must hold does. Names the place and
/// nothing of the input.
void expect(bool holds, const std::source_location& place = std::source_location::current());

} // namespace Rellinor::Fuzzers
