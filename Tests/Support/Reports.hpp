#pragma once

#include <string>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor::Tests {

/// Everything that a report tells, to be compared, printed or searched.
[[nodiscard]] std::string textOf(const ImportReport& report);

/// Whether each raw record is accounted for, the places of each entry ascend, and there is a
/// failure if there are no records.
[[nodiscard]] bool isConsistent(const ImportedExport& imported);

} // namespace Rellinor::Tests
