#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "Private/Importers/Tirel/TirelExportMember.hpp"
#include "Private/Importers/Tirel/TirelRecord.hpp"
#include "Private/Proxies/JSONDocument.hpp"

namespace Rellinor {

/// What a `TirelExportData` holds, as it stands in a file, without a copy of any text: the raw
/// records of the logins, then those of the notes, then those of the cards.
class TirelExportFile {
public:
    /// The members that are kept of the file.
    static constexpr JSONKeys keys = namesOfTirelExportMembers;

    /// Absent unless all three lists are there, and all entries have all that `TirelExportData`
    /// requires of them, of the right type. What it does not know is passed over.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] static std::optional<TirelExportFile> decoded(JSONDocument document);

    [[nodiscard]] auto begin() const noexcept { return _records.begin(); }

    [[nodiscard]] auto end() const noexcept { return _records.end(); }

private:
    TirelExportFile(JSONDocument document, std::vector<TirelRecord> records) noexcept
        : _document(std::move(document)), _records(std::move(records)) {}

    JSONDocument _document;
    std::vector<TirelRecord> _records; // of the document
};

} // namespace Rellinor
