#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include <Rellinor/ExportReader.hpp>

#include "Host/ReportJSON.hpp"

namespace Rellinor::Host {

/// Shows on `out`, for each path, the report of an import that is not delivered: how many records
/// would arrive, which would be left out and why, and what is worth a look. For a source besides
/// how the records differ from those of the faithful reading.
///
/// @param wording  for programs a JSON object on a line for each path, with all codes and places
/// @return the exit status: success only if everything would arrive and nothing is worth a look
[[nodiscard]] int runCheck(const std::vector<std::string>& paths, const ReadAs& as, Wording wording,
                           std::ostream& out);

} // namespace Rellinor::Host
