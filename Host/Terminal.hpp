#pragma once

#include <cstddef>
#include <optional>

namespace Rellinor::Host {

/// What an output is shown on, as far as that changes how it looks. By default a file.
struct Terminal {
    std::optional<std::size_t> width = std::nullopt; ///< in columns; absent unless it is a terminal
    bool colours = false;
};

/// The terminal that a descriptor leads to, as it and the environment describe it. One that does
/// not know its width has that of COLUMNS, or else 80 columns. It has colours unless NO_COLOR is
/// set, or TERM tells of none.
[[nodiscard]] Terminal terminalAt(int descriptor);

} // namespace Rellinor::Host
