#pragma once

#include "Private/Importers/Importer.hpp"
#include "Private/Proxies/JSONRecords.hpp"

namespace Rellinor {

/// Imports the 1PIF export of 1Password: the logins of web forms, and secure notes. Records of any
/// other type are left out. Has no state.
class OnePasswordImporter final {
public:
    using RawRecord = JSONObject;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true};

    /// @throws PIFParsingError  the file cannot be read or a record is not JSON
    /// @throws JSONError        strange lines made something else of the records
    [[nodiscard]] static JSONRecords read(const ExportFile& file, ImportMemory& memory,
                                          Reporter* reporter = nullptr);

    [[nodiscard]] static bool isPassword(const RawRecord& record) noexcept;

    [[nodiscard]] static bool isNote(const RawRecord& record) noexcept;

    /// The login of a web form; fails without a user name or a password.
    [[nodiscard]] static Built<ImportedPassword> buildPassword(const RawRecord& record) noexcept;

    /// A secure note; fails without a title or a content.
    [[nodiscard]] static Built<ImportedNote> buildNote(const RawRecord& record) noexcept;
};

} // namespace Rellinor
