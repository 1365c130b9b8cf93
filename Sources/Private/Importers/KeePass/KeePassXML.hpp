#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "Private/Importers/VaultItemBuilder.hpp"
#include "Private/Proxies/XMLDocument.hpp"

namespace Rellinor {

/// One entry of a KeePass database.
struct KeePassEntry {
    const XMLElement* element = nullptr;
    std::string_view folder; ///< the names of the groups around it
    bool isTrashed = false;
};

/// The entries together with the document that they stand in.
class KeePassEntries {
public:
    KeePassEntries(XMLDocument document, std::vector<KeePassEntry> entries) noexcept
        : _document(std::move(document)), _entries(std::move(entries)) {}

    [[nodiscard]] auto begin() const noexcept { return _entries.begin(); }

    [[nodiscard]] auto end() const noexcept { return _entries.end(); }

private:
    XMLDocument _document;
    std::vector<KeePassEntry> _entries;
};

/// The XML export (2.x) of KeePass and KeePassXC.
class KeePassXML final {
public:
    using RawRecord = KeePassEntry;

    static constexpr CardDateNames dateNames{}; // there are no cards

    /// @throws ReadError  the file cannot be read, or is not XML: then with its line
    [[nodiscard]] static KeePassEntries read(const ExportFile& file, ImportMemory& memory,
                                             Reporter& reporter);

    static void decode(const RawRecord& entry, VaultItemBuilder& builder);
};

} // namespace Rellinor
