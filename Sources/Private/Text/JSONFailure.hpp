#pragma once

#include <cstddef>
#include <cstdint>

namespace Rellinor {

/// Why a text is not JSON, and where that shows.
struct JSONFailure {
    enum class Reason : std::uint8_t {
        grammar,
        end, ///< the text ends before it is complete
        depth,
        notUTF8,
    };

    Reason reason = Reason::grammar;
    std::size_t offset = 0;
    std::size_t element = 0; ///< of the list of records; from 1 on, 0 without one
};

} // namespace Rellinor
