#pragma once

#include <cstddef>

#include <Rellinor/Models/ImportedRecords.hpp>

namespace Rellinor::Host {

/// How many records one reading of a file gives more, fewer and other than another one.
struct Difference {
    std::size_t more = 0;
    std::size_t fewer = 0;
    std::size_t other = 0; ///< without their like on either side

    friend bool operator==(const Difference&, const Difference&) noexcept = default;
};

/// How `records` differ from `faithful` ones, whatever their order.
[[nodiscard]] Difference differenceOf(const ImportedRecords& records,
                                      const ImportedRecords& faithful);

} // namespace Rellinor::Host
