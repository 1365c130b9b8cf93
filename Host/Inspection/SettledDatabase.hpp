#pragma once

#include <cstddef>
#include <string>

#include <Rellinor/Rellinor.hpp>

#include "Host/Inspection/Database.hpp"
#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// Tells how many logins there are in a database that was read to its end, or else what is wrong
/// with it.
///
/// @param path    of the database
/// @param logins  how many were read
/// @param result  what importing them gave
void settleDatabase(Inspection& inspection, const std::string& path, const Database& database,
                    std::size_t logins, const RecordsResult& result);

} // namespace Rellinor::Host
