#pragma once

#include <iosfwd>
#include <span>
#include <string_view>

namespace Rellinor::Host {

/// The short names of all layouts that are read.
[[nodiscard]] std::span<const std::string_view> layoutNames();

/// Writes one line for each layout: its short name, and what it is.
void listLayouts(std::ostream& out);

} // namespace Rellinor::Host
