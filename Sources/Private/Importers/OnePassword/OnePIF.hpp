#pragma once

#include "Private/Importers/FolderNames.hpp"
#include "Private/Proxies/JSONRecords.hpp"

namespace Rellinor {

/// The 1PIF export of 1Password, entries of every kind.
class OnePIF final {
public:
    using RawRecord = JSONObject;

    static constexpr CardDateNames dateNames{
        .both = "expiry", .month = "expiry_mm", .year = "expiry_yy"};

    /// @throws PIFParsingError  the file cannot be read or a record is not JSON
    [[nodiscard]] JSONRecords read(const ExportFile& file, ImportMemory& memory,
                                   Reporter& reporter);

    void decode(const RawRecord& entry, VaultItemBuilder& builder) const;

private:
    FolderNames _folders;
};

} // namespace Rellinor
