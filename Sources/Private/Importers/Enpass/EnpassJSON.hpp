#pragma once

#include <string_view>
#include <unordered_map>

#include "Private/Importers/JSONExport.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

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
    std::unordered_map<std::string_view, std::string_view> _folders; // paths by identifiers
};

} // namespace Rellinor
