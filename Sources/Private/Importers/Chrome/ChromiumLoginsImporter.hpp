#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "Private/Importers/Chrome/ChromiumDatabase.hpp"
#include "Private/Importers/Importer.hpp"

namespace Rellinor {

/// Imports the login database of a Chromium browser faithfully: all logins with all that the
/// columns hold, and their notes. A profile folder is read by its databases "Login Data" and "Login
/// Data For Account", one after the other. Passwords and notes are the Base64 texts of the bytes,
/// which the browser keeps encrypted.
class ChromiumLoginsImporter final {
public:
    using RawRecord = ChromiumLogin;

    static constexpr RecordKinds kinds{.passwords = true};

    /// The rows of the table of logins, in the databases' order.
    ///
    /// @param reporter  outlives this; there is one
    /// @throws ReadError  a file cannot be read, or gives no row for a reason
    [[nodiscard]] ChromiumLogins read(const ExportFile& file, ImportMemory& memory,
                                      Reporter* reporter);

    /// Every row is a login, but for a site that the user excluded from saving, and a row without
    /// any text.
    [[nodiscard]] static bool isPassword(const RawRecord& record) noexcept;

    [[nodiscard]] static Dropped whyNoKind(const RawRecord& record) noexcept;

    /// @throws std::bad_alloc
    [[nodiscard]] Built<ImportedPassword> buildPassword(const RawRecord& record);

    /// @throws std::bad_alloc
    void addExtras(const RawRecord& record, ExtrasTable& extras);

private:
    /// The text of a value as it stands; of bytes the Base64 text, which the reporter is told of.
    [[nodiscard]] std::string_view secretOf(const SQLiteValue& value, std::string_view field,
                                            ImportMemory& memory);

    /// The text of a value, a number in digits; empty for bytes, which the reporter is told of.
    [[nodiscard]] std::string_view textOf(const SQLiteValue& value, std::string_view field,
                                          ImportMemory& memory);

    [[nodiscard]] std::optional<std::int64_t> unixTimeOf(const SQLiteValue& value,
                                                         std::string_view field);

    void find(FindingKind kind, std::string_view field) noexcept;

    Reporter* _reporter = nullptr; // of the last read
};

} // namespace Rellinor
