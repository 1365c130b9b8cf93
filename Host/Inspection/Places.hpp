#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Rellinor::Host {

/// Places in words, such as "line 7" and "lines 7 and 9", and of many only the first.
///
/// @param places  at least one
/// @param noun  what they are, in the singular
/// @param most  how many of them to name
[[nodiscard]] std::string describedPlaces(const std::vector<std::size_t>& places,
                                          std::string_view noun, std::size_t most);

} // namespace Rellinor::Host
