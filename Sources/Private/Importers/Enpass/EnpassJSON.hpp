#pragma once

#include "Private/Importers/FolderNames.hpp"
#include "Private/Importers/JSONExport.hpp"

namespace Rellinor {

/// The JSON export of Enpass.
class EnpassJSON final {
public:
    using RawRecord = JSONEntry;

    static constexpr CardDateNames dateNames{.both = "ccExpiry"};

    /// @throws ReadError
    [[nodiscard]] JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                   Reporter& reporter);

    void decode(const RawRecord& entry, VaultItemBuilder& builder) const;

private:
    void useFolders(const JSONValue& element);

    FolderNames _folders;
};

} // namespace Rellinor
