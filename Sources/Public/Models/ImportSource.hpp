#pragma once

#include <cstdint>

namespace Rellinor {

/// The products whose exports or stores can be imported.
enum class ImportSource : std::uint8_t {
    chrome,      ///< the database "Login Data" of a profile
    lastPass,    ///< a CSV export
    dashlane,    ///< a CSV export
    onePassword, ///< the text file of a 1PIF export
    tirel,       ///< a JSON export
    keePass,     ///< a CSV export; the file tells whether it is one of KeePassXC
    keePassXC,   ///< the same as `keePass`
    firefox,     ///< a profile folder
};

} // namespace Rellinor
