#pragma once

#include "Private/Importers/Importer.hpp"
#include "Private/Proxies/CSVKeyedRecords.hpp"
#include "Private/Proxies/CSVRecord.hpp"

namespace Rellinor {

/// Imports the CSV export of LastPass: logins and secure notes. Has no state.
class LastPassImporter final {
public:
    using RawRecord = CSVRecord;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true};

    /// @throws TextError  the file cannot be read, is not UTF-8, or its first row does not have
    ///                    exactly seven cells
    [[nodiscard]] static CSVKeyedRecords read(const ExportFile& file, ImportMemory& memory,
                                              Reporter* reporter = nullptr);

    [[nodiscard]] static bool isPassword(const RawRecord& record) noexcept;

    /// A row is a secure note if the host of its URL is "sn".
    [[nodiscard]] static bool isNote(const RawRecord& record) noexcept;

    /// A login; fails if all of its telling columns are empty. Its "extra" text is left out.
    [[nodiscard]] static Built<ImportedPassword> buildPassword(const RawRecord& record) noexcept;

    /// Tells which columns of a record never arrive.
    static void tellUnread(const RawRecord& record, Reporter& reporter);

    /// A secure note; fails if both its title and its content are empty.
    [[nodiscard]] static Built<ImportedNote> buildNote(const RawRecord& record) noexcept;
};

} // namespace Rellinor
