#pragma once

#include <string_view>

#include "Private/Importers/Firefox/FirefoxProfileLogins.hpp"
#include "Private/Importers/Importer.hpp"

namespace Rellinor {

/// Imports a Firefox profile folder faithfully: all logins of "logins.json" or, only if there is
/// none, of "signons.sqlite", with all that the browser keeps of them. User names and passwords
/// stay encrypted.
class FirefoxProfileImporter final {
public:
    using RawRecord = FirefoxProfileRecord;

    static constexpr RecordKinds kinds{.passwords = true};

    /// The entries in the store's order.
    ///
    /// @param reporter  outlives this; there is one
    /// @throws ReadError  the folder has no store, or it cannot be read or is something else
    [[nodiscard]] FirefoxProfileLogins read(const ExportFile& file, ImportMemory& memory,
                                            Reporter* reporter);

    /// Every entry is a login, but for the account of the browser itself, one that is no object and
    /// one without any text.
    [[nodiscard]] static bool isPassword(const RawRecord& record) noexcept;

    [[nodiscard]] static Dropped whyNoKind(const RawRecord& record) noexcept;

    [[nodiscard]] Built<ImportedPassword> buildPassword(const RawRecord& record);

    /// @throws std::bad_alloc
    void addExtras(const RawRecord& record, ExtrasTable& extras);

    static void tellUnread(const RawRecord& record, Reporter& reporter) noexcept;

private:
    using Key = FirefoxProfileKey;

    /// The text under a key. The reporter is told of a value that is none.
    [[nodiscard]] std::string_view textOf(const RawRecord& record, Key key) noexcept;

    /// The same of a text that the browser keeps encrypted.
    [[nodiscard]] std::string_view secretOf(const RawRecord& record, Key key) noexcept;

    /// The digits of an integer under a key, likewise.
    [[nodiscard]] std::string_view digitsOf(const RawRecord& record, Key key);

    void find(FindingKind kind, Key key) noexcept;

    Reporter* _reporter = nullptr; // of the last read
    ImportMemory* _memory = nullptr;
};

} // namespace Rellinor
