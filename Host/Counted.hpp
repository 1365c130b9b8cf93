#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Rellinor::Host {

/// A number of things, such as "1 note" and "2 notes".
[[nodiscard]] inline std::string counted(std::size_t count, std::string_view noun) {
    std::string text = std::to_string(count);
    text += ' ';
    text += noun;
    if (count != 1) {
        text += 's';
    }
    return text;
}

} // namespace Rellinor::Host
