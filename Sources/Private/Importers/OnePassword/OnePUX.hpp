#pragma once

#include "Private/Importers/JSONExport.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// The 1PUX export of 1Password: an archive with one JSON file.
class OnePUX final {
public:
    using RawRecord = JSONEntry;

    static constexpr CardDateNames dateNames{.both = "expiry"};

    /// @throws ReadError
    [[nodiscard]] static JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                          Reporter& reporter);

    static void decode(const RawRecord& entry, VaultItemBuilder& builder);
};

} // namespace Rellinor
