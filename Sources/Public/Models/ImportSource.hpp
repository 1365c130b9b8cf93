#pragma once

#include <cstdint>

namespace Rellinor {

/// The products whose exports or stores can be imported.
enum class ImportSource : std::uint8_t {
    chrome,
    lastPass,
    dashlane,
    onePassword,
    tirel,
    keePass,
    keePassXC,
    firefox,
};

} // namespace Rellinor
