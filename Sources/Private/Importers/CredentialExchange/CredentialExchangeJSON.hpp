#pragma once

#include <string_view>
#include <unordered_map>

#include "Private/Importers/JSONExport.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// A file of the FIDO Credential Exchange Format 1.0: a header with its accounts, an account alone,
/// or an archive with either.
class CredentialExchangeJSON final {
public:
    using RawRecord = JSONEntry;

    static constexpr CardDateNames dateNames{.both = "expiryDate"};

    /// @throws ReadError
    [[nodiscard]] JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                   Reporter& reporter);

    void decode(const RawRecord& entry, VaultItemBuilder& builder) const;

private:
    void addAccount(const JSONObject& account, std::vector<JSONEntry>& entries,
                    ImportMemory& memory, Reporter& reporter);
    void addCollections(const JSONObject& account, ImportMemory& memory, Reporter& reporter);
    [[nodiscard]] std::string_view addCollection(const JSONObject& collection,
                                                 std::string_view path, ImportMemory& memory,
                                                 Reporter& reporter);

    std::unordered_multimap<std::string_view, std::string_view> _folders; // paths by items
};

} // namespace Rellinor
