#pragma once

#include <string_view>

namespace Rellinor::Fuzzers {

/// Expects what the tool shows to be whole lines of UTF-8, and nothing in them that a terminal
/// would take for a command.
void expectLinesOfText(std::string_view output);

} // namespace Rellinor::Fuzzers
