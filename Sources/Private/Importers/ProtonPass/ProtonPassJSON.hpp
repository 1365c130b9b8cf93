#pragma once

#include "Private/Importers/JSONExport.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// The JSON export of Proton Pass.
class ProtonPassJSON {
public:
    using RawRecord = JSONEntry;

    static constexpr CardDateNames dateNames{.both = "expirationDate"};

    /// @throws ReadError
    [[nodiscard]] static JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                          Reporter& reporter);

    static void decode(const RawRecord& entry, VaultItemBuilder& builder);

protected:
    [[nodiscard]] static JSONEntries entriesOf(JSONDocument document, Reporter& reporter);
};

/// The same in an archive, with attachments.
class ProtonPassZip final : public ProtonPassJSON {
public:
    /// @throws ReadError
    [[nodiscard]] static JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                          Reporter& reporter);
};

} // namespace Rellinor
