#pragma once

#include <span>
#include <string_view>

namespace Rellinor::Host {

/// The name that somebody most likely meant who typed `word`, without regard to case: the one that
/// takes the fewest letters put in, left out, changed or swapped with the next, if they are few for
/// its length, or the first that `word` begins. Empty if there is none.
[[nodiscard]] std::string_view nearestName(std::string_view word,
                                           std::span<const std::string_view> names);

} // namespace Rellinor::Host
