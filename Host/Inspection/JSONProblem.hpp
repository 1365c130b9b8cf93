#pragma once

#include <optional>
#include <string_view>

#include "Host/Inspection/Inspection.hpp"
#include "Host/Inspection/JSONTree.hpp"

namespace Rellinor::Host {

/// Parses the text of a JSON file, which may have a byte-order mark. If it is not JSON, the remark
/// on the line is added to what is wrong, and `inspection.place` is "line". Of JSON that cannot be
/// parsed here nothing is told.
[[nodiscard]] std::optional<JSONTree> parseJSONFile(std::string_view contents, JSONWords words,
                                                    Inspection& inspection);

} // namespace Rellinor::Host
