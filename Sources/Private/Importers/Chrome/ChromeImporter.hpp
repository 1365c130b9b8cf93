#pragma once

#include <string>

#include "Private/Importers/Importer.hpp"
#include "Private/Proxies/SQLiteRow.hpp"
#include "Private/Proxies/SQLiteRows.hpp"

namespace Rellinor {

/// Imports Chrome's login database: the logins that have a user name, a password and a URL, without
/// those that the user excluded from saving. Has no state.
class ChromeImporter final {
public:
    using RawRecord = SQLiteRow;

    static constexpr RecordKinds kinds{.passwords = true};

    /// The logins in the database's order; none if the file cannot be read or is something else.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] static SQLiteRows read(const ExportFile& file, ImportMemory& memory,
                                         Reporter* reporter = nullptr);

    /// Every row is a login.
    [[nodiscard]] static bool isPassword(const RawRecord& /*record*/) noexcept { return true; }

    /// A login; fails unless user name and URL are texts and the password is bytes. The password is
    /// the Base64 text of these bytes, which the browser keeps encrypted.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] static Built<ImportedPassword> buildPassword(const RawRecord& record);

    /// The query that `read` makes.
    [[nodiscard]] static std::string statement();
};

} // namespace Rellinor
