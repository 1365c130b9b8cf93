#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <Rellinor/Layout.hpp>

namespace Rellinor::Tests {

/// Expects that whichever value of an export is missing or of another type, nothing else is lost:
/// the import succeeds, all its raw records are seen unless one of them or a list of them is gone,
/// and every other text that begins with "t-" arrives. What stands in place of one arrives in turn,
/// or the report tells more. All of them arrive from the export as it is, and none that begins with
/// "u-".
///
/// @param fileOf  makes the file of a JSON text
void expectSingleLosses(Layout layout, std::string_view json,
                        const std::function<std::string(std::string_view)>& fileOf = {});

} // namespace Rellinor::Tests
