#pragma once

#include "Private/Importers/Importer.hpp"
#include "Private/Importers/OnePassword/OnePIFItem.hpp"
#include "Private/Proxies/JSONRecords.hpp"

namespace Rellinor {

/// Reads the 1PIF export of 1Password faithfully, entries of every kind. To be used for one file.
class OnePIFImporter final {
public:
    using RawRecord = JSONObject;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true, .cards = true};

    /// @param memory, reporter  outlive this
    /// @throws PIFParsingError  the file cannot be read or a record is not JSON
    [[nodiscard]] JSONRecords read(const ExportFile& file, ImportMemory& memory,
                                   Reporter* reporter);

    // An entry is asked first whether it is a password: that decodes the entry for all that is
    // asked of it later.

    [[nodiscard]] bool isPassword(const RawRecord& record);

    [[nodiscard]] bool isNote(const RawRecord& record) const noexcept;

    [[nodiscard]] bool isCard(const RawRecord& record) const noexcept;

    [[nodiscard]] Built<ImportedPassword> buildPassword(const RawRecord& record) const noexcept;

    [[nodiscard]] Built<ImportedNote> buildNote(const RawRecord& record) const;

    [[nodiscard]] Built<ImportedCard> buildCard(const RawRecord& record);

    void addExtras(const RawRecord& record, ExtrasList& extras) const;

    void tellUnread(const RawRecord& record, Reporter& reporter) const noexcept;

    /// Folders, what is in the trash, and entries without any text.
    [[nodiscard]] Dropped whyNoKind(const RawRecord& record) const noexcept;

private:
    [[nodiscard]] bool isOf(OnePasswordShape shape) const noexcept;

    ImportMemory* _memory = nullptr;
    Reporter* _reporter = nullptr;
    OnePIFFolders _folders;
    OnePIFItem _item; // of the current record
};

} // namespace Rellinor
