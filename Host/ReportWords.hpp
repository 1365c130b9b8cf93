#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <Rellinor/ImportReport.hpp>

// What a report tells, in words: the sentences are the library's.

namespace Rellinor::Host {

/// Where and what, such as "lines 3 and 7 (password): A field is missing …".
///
/// @param mostPlaces  how many to name
[[nodiscard]] std::string described(const LeftOut& leftOut, PlaceUnit unit, std::size_t mostPlaces);
[[nodiscard]] std::string described(const Finding& finding, PlaceUnit unit, std::size_t mostPlaces);

/// What never arrives, such as "attachments (3)".
[[nodiscard]] std::string described(const Unread& unread);

/// Why there is nothing; empty if the report does not tell.
[[nodiscard]] std::string described(const Failure& failure, PlaceUnit unit);

/// Whether everything has arrived that is read of the layout, and nothing is worth a look.
[[nodiscard]] bool isWithoutLoss(const ImportReport& report) noexcept;

/// How many raw records are left out.
[[nodiscard]] std::uint64_t countOfLeftOut(const ImportReport& report) noexcept;

} // namespace Rellinor::Host
