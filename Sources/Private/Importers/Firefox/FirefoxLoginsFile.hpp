#pragma once

#include <optional>

#include "Private/Proxies/JSONDocument.hpp"
#include "Private/Proxies/JSONRecords.hpp"

namespace Rellinor {

/// The logins of a "logins.json": the list under "logins", in its order. Their members are asked
/// for by `EncryptedKeys`.
class FirefoxLoginsFile : public JSONRecords {
public:
    /// The members that are kept of the file.
    static const JSONKeys keys;

    /// Absent if the document has no object at its top, or has something other than a list of
    /// objects under "logins": a single element of another kind is enough.
    [[nodiscard]] static std::optional<FirefoxLoginsFile> decoded(JSONDocument document) noexcept;

private:
    using JSONRecords::JSONRecords;
};

} // namespace Rellinor
