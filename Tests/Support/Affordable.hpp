#pragma once

#include <concepts>

namespace Rellinor::Tests {

/// How many rounds of something to do, or how large to make it: all of it, or a fifth under a
/// sanitizer, which takes ten times as long for each.
template <std::integral Count>
constexpr Count affordable(Count count) noexcept {
#if defined(RELLINOR_SANITIZED)
    return count / 5;
#else
    return count;
#endif
}

} // namespace Rellinor::Tests
