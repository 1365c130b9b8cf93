#pragma once

#include "Private/Importers/Importer.hpp"
#include "Private/Importers/Tirel/TirelExportFile.hpp"

namespace Rellinor {

/// Imports the JSON export of Tirel: logins, secure notes and payment cards. Has no state.
class TirelImporter final {
public:
    using RawRecord = TirelRecord;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true, .cards = true};

    /// @throws TextError  the file cannot be read, is not JSON, or is not of the export's shape
    [[nodiscard]] static TirelExportFile read(const ExportFile& file, ImportMemory& memory,
                                              Reporter* reporter = nullptr);

    // Told by the presence of a key, whatever its value.

    [[nodiscard]] static bool isPassword(const RawRecord& record) noexcept;

    [[nodiscard]] static bool isNote(const RawRecord& record) noexcept;

    [[nodiscard]] static bool isCard(const RawRecord& record) noexcept;

    // Each fails if a required key is missing or of another type than it should be.

    [[nodiscard]] static Built<ImportedPassword> buildPassword(const RawRecord& record) noexcept;

    [[nodiscard]] static Built<ImportedNote> buildNote(const RawRecord& record) noexcept;

    [[nodiscard]] static Built<ImportedCard> buildCard(const RawRecord& record) noexcept;
};

} // namespace Rellinor
