#pragma once

#include <optional>

#include <Rellinor/URL.hpp>

namespace Rellinor {

/// What was found in a profile folder. Each is there only if it can be read, as far as the file
/// system tells.
struct FirefoxImportMetaData {
    std::optional<URL> logins;  ///< "logins.json"
    std::optional<URL> signons; ///< "signons.sqlite"

    /// Looks into the folder.
    [[nodiscard]] static FirefoxImportMetaData of(const URL& directory);
};

} // namespace Rellinor
