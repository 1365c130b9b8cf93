#include "Private/Importers/Firefox/FirefoxImporter.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"
#include "Private/Extensions/String.hpp"
#include "Private/Importers/DatabaseImports.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/Firefox/FirefoxEncryptedRecord.hpp"
#include "Private/Importers/Firefox/FirefoxLoginsFile.hpp"
#include "Private/Proxies/JSONFileProxy.hpp"

namespace Rellinor {

namespace {

using EncryptedLogins = std::vector<FirefoxEncryptedRecord>;

/// A field of a login.
struct Field {
    std::optional<std::string_view> text;
    bool isThere = false; ///< perhaps not as a text
};

Field fieldOf(const JSONObject& login, EncryptedKeys key) noexcept {
    const JSONValue value = login[key].value_or(JSONValue());
    return {.text = value.text(), .isThere = !value.isNull()};
}

Field fieldOf(const SQLiteRow& login, EncryptedKeys key) noexcept {
    const SQLiteValue value = login[rawValue(key)].value_or(SQLiteValue());
    return {.text = value.text(), .isThere = !value.isAbsent()};
}

/// The logins that have all of the fields. The others are told to the reporter, which may be null.
EncryptedLogins mapFetched(const auto& encryptedLogins, Reporter* reporter) {
    EncryptedLogins logins;
    std::uint64_t number = 0;
    for (const auto& login : encryptedLogins) {
        ++number;
        std::array<std::string_view, allEncryptedKeys.size()> texts;
        const auto lacking = std::ranges::find_if(allEncryptedKeys, [&](EncryptedKeys key) {
            const auto text = fieldOf(login, key).text;
            texts[indexOf(key)] = text.value_or("");
            return !text;
        });
        if (lacking == allEncryptedKeys.end()) {
            logins.push_back({.host = texts[indexOf(EncryptedKeys::host)],
                              .password = texts[indexOf(EncryptedKeys::password)],
                              .username = texts[indexOf(EncryptedKeys::user)]});
        } else if (reporter != nullptr) {
            reporter->beginRecord(number);
            reporter->leftOut(fieldOf(login, *lacking).isThere ? LeftOutReason::fieldOfOtherType
                                                               : LeftOutReason::missingField,
                              rawValue(*lacking));
        }
    }
    return logins;
}

EncryptedLogins fetchEncryptedLoginsFromJSON(const URL& file, ImportMemory& memory,
                                             Reporter* reporter) {
    JSONFileProxy proxy(file, memory, largestFileFor(reporter));
    const auto logins = proxy.containerObject<FirefoxLoginsFile>();
    if (!logins) {
        reportFailure(proxy, reporter);
        return {};
    }
    return mapFetched(*logins, reporter);
}

EncryptedLogins fetchEncryptedLoginsFromSQLite(const URL& file, ImportMemory& memory,
                                               Reporter* reporter) {
    return mapFetched(rowsOfSource(file, FirefoxImporter::statement(), memory, reporter), reporter);
}

} // namespace

std::string FirefoxImporter::statement() {
    std::string columns;
    for (const EncryptedKeys key : allEncryptedKeys) {
        columns += columns.empty() ? "" : ", ";
        columns += rawValue(key);
    }
    return "SELECT " + columns + " FROM moz_logins";
}

std::vector<FirefoxRecord> FirefoxImporter::read(const ExportFile& file, ImportMemory& memory,
                                                 Reporter* reporter) {
    const FirefoxImportMetaData& meta = _meta.emplace(
        file.url() ? FirefoxImportMetaData::of(*file.url()) : FirefoxImportMetaData());
    EncryptedLogins logins;
    if (meta.logins) {
        logins = fetchEncryptedLoginsFromJSON(*meta.logins, memory, reporter);
    } else if (meta.signons) {
        logins = fetchEncryptedLoginsFromSQLite(*meta.signons, memory, reporter);
    } else {
        // Quirk: the reason of a failure stays through later successes.
        _failureReason = FirefoxImportFailureReason::invalidProfile;
        if (reporter != nullptr) {
            reporter->fail(FailureReason::noStore);
        }
        throw TextError(
            "Failed to find logins.json or signons.sqlite for provided firefox profile folder " +
            std::string(file.name()));
    }
    std::vector<FirefoxRecord> records;
    records.reserve(logins.size());
    for (const FirefoxEncryptedRecord& login : logins) {
        FirefoxRecord& record = records.emplace_back();
        record.set(FirefoxRecordKey::username, login.username);
        record.set(FirefoxRecordKey::password, login.password);
        record.set(FirefoxRecordKey::hostname, login.host);
    }
    return records;
}

Built<ImportedPassword> FirefoxImporter::buildPassword(const RawRecord& record) noexcept {
    const auto username = record[FirefoxRecordKey::username];
    require(username.has_value());
    const auto password = record[FirefoxRecordKey::password];
    require(password.has_value());
    const auto hostname = record[FirefoxRecordKey::hostname];
    require(hostname.has_value());
    return ImportedPassword{
        *username,
        *password,
        *hostname,
    };
}

} // namespace Rellinor
