#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "Host/Detection/Detection.hpp"

namespace Rellinor::Host {

/// The cells of the first row of a table, without the quotes around them.
using Header = std::vector<std::string_view>;

/// A table by the names of its columns.
[[nodiscard]] std::optional<Detection> detectHeader(const Header& header);

} // namespace Rellinor::Host
