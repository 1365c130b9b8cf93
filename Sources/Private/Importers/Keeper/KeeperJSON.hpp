#pragma once

#include "Private/Importers/JSONExport.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// The JSON export of Keeper, by its web vault or by Commander.
class KeeperJSON final {
public:
    using RawRecord = JSONEntry;

    static constexpr CardDateNames dateNames{.both = "cardExpirationDate"};

    /// @throws ReadError
    [[nodiscard]] static JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                          Reporter& reporter);

    static void decode(const RawRecord& entry, VaultItemBuilder& builder);
};

} // namespace Rellinor
