#pragma once

#include <string_view>

namespace Rellinor {

/// What a text begins with.
struct Beginning {
    std::string_view text;
    bool isWhole = false; ///< whether the text ends there
};

} // namespace Rellinor
