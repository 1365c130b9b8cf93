#pragma once

#include <cstdint>

#include <Rellinor/Detection.hpp>
#include <Rellinor/ImportReport.hpp>

#include "Host/JSONText.hpp"

// What the library tells of a file, as objects with its codes, for other programs.

namespace Rellinor::Host {

/// For whom something is told.
enum class Wording : std::uint8_t {
    people,
    programs, ///< as JSON, a line for each path
};

void writeReport(const ImportReport& report, JSONText& json);

/// Why there is nothing.
void writeFailure(const ImportReport& report, JSONText& json);

void writeDetection(const Detection& detection, JSONText& json);

} // namespace Rellinor::Host
