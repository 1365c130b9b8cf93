#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace Rellinor::Host {

/// Names in a sentence, such as "a, b and c".
///
/// @param quote  what stands around each of them
[[nodiscard]] inline std::string listed(std::span<const std::string_view> names,
                                        std::string_view quote = "") {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) {
            text += i + 1 == names.size() ? " and " : ", ";
        }
        text += quote;
        text += names[i];
        text += quote;
    }
    return text;
}

} // namespace Rellinor::Host
