#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Tests/Support/Process.hpp"

namespace Rellinor::Tests {

/// Runs the host tool.
[[nodiscard]] inline Ended rellinor(std::vector<std::string> arguments,
                                    const std::string& output = "") {
    return run(RELLINOR_TOOL, std::move(arguments), output);
}

[[nodiscard]] inline std::ptrdiff_t linesIn(std::string_view text) {
    return std::ranges::count(text, '\n');
}

/// A LastPass export with these rows.
[[nodiscard]] inline std::string lastPassRows(std::string_view rows) {
    return "url,username,password,extra,name,grouping,fav\n" + std::string(rows);
}

} // namespace Rellinor::Tests
