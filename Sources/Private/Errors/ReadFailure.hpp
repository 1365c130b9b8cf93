#pragma once

#include <cstddef>
#include <optional>

#include <Rellinor/FailureReason.hpp>

namespace Rellinor {

/// Why a reader has nothing, and where that shows.
struct ReadFailure {
    FailureReason reason = FailureReason::none;
    std::optional<std::size_t> position; ///< in what the reader counts by

    friend bool operator==(const ReadFailure&, const ReadFailure&) noexcept = default;
};

} // namespace Rellinor
