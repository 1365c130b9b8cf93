#pragma once

#include <concepts>
#include <cstdlib>

namespace Rellinor::Tests {

/// Whether the tests may take their time: the environment has RELLINOR_THOROUGH, as in
/// Scripts/check.
inline bool isThorough() noexcept {
    return std::getenv("RELLINOR_THOROUGH") != nullptr; // NOLINT(concurrency-mt-unsafe)
}

/// How many rounds of something to do, or how large to make it: all of it if the tests are
/// thorough, or else a fifth.
template <std::integral Count>
Count affordable(Count count) noexcept {
    return isThorough() ? count : count / 5;
}

} // namespace Rellinor::Tests
