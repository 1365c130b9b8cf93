#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Private/Importers/Firefox/FirefoxImportMetaData.hpp"
#include "Private/Importers/Firefox/FirefoxRecord.hpp"
#include "Private/Importers/Importer.hpp"

namespace Rellinor {

/// Why a profile could not be imported.
enum class FirefoxImportFailureReason : std::uint8_t {
    invalidProfile,
    invalidPassword, ///< for the host's use
    notAFailure,
};

/// Imports the logins of a Firefox profile folder, from "logins.json" or, only if there is none,
/// from "signons.sqlite". User names and passwords stay encrypted. Remembers what the last read
/// found and whether one has failed.
class FirefoxImporter final {
public:
    using RawRecord = FirefoxRecord;

    static constexpr RecordKinds kinds{.passwords = true};

    /// The logins in the store's order; none if the store cannot be read or is something else.
    ///
    /// @throws TextError  the folder has neither store
    [[nodiscard]] std::vector<RawRecord> read(const ExportFile& file, ImportMemory& memory,
                                              Reporter* reporter = nullptr);

    /// Every record is a login.
    [[nodiscard]] static bool isPassword(const RawRecord& /*record*/) noexcept { return true; }

    /// A login, for a record with all of its keys; another is a fault of the program.
    [[nodiscard]] static Built<ImportedPassword> buildPassword(const RawRecord& record) noexcept;

    /// Why a read has failed, even if others succeeded since.
    [[nodiscard]] FirefoxImportFailureReason failureReason() const noexcept {
        return _failureReason;
    }

    /// What the last read found; absent before the first.
    [[nodiscard]] const std::optional<FirefoxImportMetaData>& meta() const noexcept {
        return _meta;
    }

    /// The query that is made to "signons.sqlite".
    [[nodiscard]] static std::string statement();

private:
    FirefoxImportFailureReason _failureReason = FirefoxImportFailureReason::notAFailure;
    std::optional<FirefoxImportMetaData> _meta;
};

} // namespace Rellinor
