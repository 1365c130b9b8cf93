#pragma once

#include <iosfwd>
#include <optional>
#include <span>
#include <string_view>

#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor::Host {

/// The source of that name, compared without regard to case; absent if there is none.
[[nodiscard]] std::optional<ImportSource> sourceNamed(std::string_view name);

/// The names of all sources.
[[nodiscard]] std::span<const std::string_view> sourceNames();

/// Writes one line for each source: its name, and what is to be given as its path.
void listSources(std::ostream& out);

} // namespace Rellinor::Host
