#pragma once

#include "Private/Importers/FolderNames.hpp"
#include "Private/Importers/JSONExport.hpp"

namespace Rellinor {

/// The JSON export of Bitwarden, of a person or an organisation.
class BitwardenJSON {
public:
    using RawRecord = JSONEntry;

    static constexpr CardDateNames dateNames{.both = "", .month = "expMonth", .year = "expYear"};

    /// @throws ReadError
    [[nodiscard]] JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                   Reporter& reporter);

    void decode(const RawRecord& entry, VaultItemBuilder& builder) const;

protected:
    [[nodiscard]] JSONEntries entriesOf(JSONDocument document, Reporter& reporter);

private:
    void useFolders(const JSONValue& element);

    FolderNames _folders;
};

/// The same in an archive, with attachments.
class BitwardenZip final : public BitwardenJSON {
public:
    /// @throws ReadError
    [[nodiscard]] JSONEntries read(const ExportFile& file, ImportMemory& memory,
                                   Reporter& reporter);
};

} // namespace Rellinor
