#pragma once

#include <cstddef>
#include <string>

#include <Rellinor/ImportReport.hpp>

namespace Rellinor::Host {

/// Places in words, such as "line 7 of payments.csv" and "lines 7, 9 and 30 more", or "12 records"
/// if nobody knows where.
///
/// @param places  at least one
/// @param most    how many of them to name
[[nodiscard]] std::string described(const Places& places, PlaceUnit unit, std::size_t most);

} // namespace Rellinor::Host
