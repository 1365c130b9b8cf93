#pragma once

#include <cstddef>

#include <Rellinor/Rellinor.hpp>

#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// How many records an import delivered; none if it failed.
[[nodiscard]] inline std::size_t deliveredBy(const RecordsResult& result) noexcept {
    return result ? result->passwords.size() + result->notes.size() + result->cards.size() : 0;
}

/// Tells how many units there are, if that agrees with what the import delivered: the file may have
/// changed since, and no count is better than a wrong one. Whether it agrees.
inline bool settleCount(Inspection& inspection, std::size_t count, const RecordsResult& result) {
    const bool agrees = result && count == deliveredBy(result) + inspection.countOfLeftOut();
    if (agrees) {
        inspection.count = count;
    }
    return agrees;
}

} // namespace Rellinor::Host
