#pragma once

#include <array>
#include <string_view>

namespace Rellinor::Host {

/// What may stand between the columns of a table that no import reads, since it is no comma.
struct OtherSeparator {
    char character;
    std::string_view name;
};

inline constexpr std::array<OtherSeparator, 2> otherSeparators = {
    {{.character = ';', .name = "semicolons"}, {.character = '\t', .name = "tabs"}}};

} // namespace Rellinor::Host
