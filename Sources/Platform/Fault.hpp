#pragma once

#include <cstdlib>

namespace Rellinor {

/// Stops the process: the program itself is wrong, not its input. Says nothing, so that no secret
/// slips out with the message.
[[noreturn]] inline void fault() noexcept {
    std::abort();
}

/// Checks what only a defect of the program can break. Always on, in every build.
constexpr void require(bool condition) noexcept {
    if (!condition) [[unlikely]] {
        fault();
    }
}

} // namespace Rellinor
