#include "Private/Importers/Firefox/FirefoxImporter.hpp"

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

std::optional<std::string_view> textOf(const JSONObject& login, EncryptedKeys key) noexcept {
    return login.text(key);
}

std::optional<std::string_view> textOf(const SQLiteRow& login, EncryptedKeys key) noexcept {
    return login[rawValue(key)].and_then(&SQLiteValue::text);
}

bool isAbsent(const JSONObject& login, EncryptedKeys key) noexcept {
    return login[key].value_or(JSONValue()).isNull();
}

bool isAbsent(const SQLiteRow& login, EncryptedKeys key) noexcept {
    return login[rawValue(key)].value_or(SQLiteValue()).isAbsent();
}

/// Tells which field a login lacks.
void reportDropped(const auto& login, Reporter& reporter) noexcept {
    for (const EncryptedKeys key : allEncryptedKeys) {
        if (!textOf(login, key)) {
            reporter.leftOut(isAbsent(login, key) ? LeftOutReason::missingField
                                                  : LeftOutReason::fieldOfOtherType,
                             rawValue(key));
            return;
        }
    }
}

/// The logins that have all of the fields. The others are told to the reporter, which may be null.
EncryptedLogins mapFetched(const auto& encryptedLogins, Reporter* reporter) {
    EncryptedLogins logins;
    std::uint64_t number = 0;
    for (const auto& login : encryptedLogins) {
        ++number;
        const auto host = textOf(login, EncryptedKeys::host);
        const auto username = textOf(login, EncryptedKeys::user);
        const auto password = textOf(login, EncryptedKeys::password);
        if (host && username && password) {
            logins.push_back({.host = *host, .password = *password, .username = *username});
        } else if (reporter != nullptr) {
            reporter->beginRecord(number);
            reportDropped(login, *reporter);
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
    return mapFetched(rowsOfSource(file, FirefoxImporter::statement(), memory, reporter),
                      reporter);
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
