#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Rellinor::Tests {

/// A change of one value of a JSON text.
struct JSONChange {
    std::string path;              ///< of the value, such as "/fields/0/name"
    std::string text;              ///< the whole text after the change
    std::string lost;              ///< the text that stood there; empty if there was none
    std::vector<std::string> kept; ///< the texts that stand elsewhere
    std::string_view name; ///< of the change: "missing", or what stands in place of the value
};

/// Calls `visit` for each value of a JSON text but the whole, removed and replaced by values of
/// every type.
void forEachChange(std::string_view json, const std::function<void(const JSONChange&)>& visit);

} // namespace Rellinor::Tests
