#pragma once

#include <optional>
#include <string_view>

#include "Host/Inspection/Inspection.hpp"
#include "Host/Inspection/JSONTree.hpp"

namespace Rellinor::Host {

/// What is wrong with the encoding of a text that ought to be UTF-8, and on which line; absent if
/// nothing is.
[[nodiscard]] std::optional<Remark> encodingProblem(std::string_view text);

/// Parses the text of a JSON file, which may have a byte-order mark. If it is not JSON, the remark
/// on the line is added to what is wrong, and `inspection.place` is "line".
[[nodiscard]] std::optional<JSONTree> parseJSONFile(std::string_view contents, JSONWords words,
                                                    Inspection& inspection);

} // namespace Rellinor::Host
