#pragma once

#include "Private/Importers/JSONExport.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// The payment cards that Safari exports, one of the files in its archive.
class SafariCards final {
public:
    using RawRecord = JSONEntry;

    static constexpr CardDateNames dateNames{
        .both = "", .month = "card_expiration_month", .year = "card_expiration_year"};

    /// @throws ReadError
    [[nodiscard]] static JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                          Reporter& reporter);

    static void decode(const RawRecord& entry, VaultItemBuilder& builder);
};

} // namespace Rellinor
