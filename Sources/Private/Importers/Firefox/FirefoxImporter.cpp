#include "Private/Importers/Firefox/FirefoxImporter.hpp"

#include <string_view>

#include "Platform/Fault.hpp"
#include "Private/Extensions/String.hpp"
#include "Private/Importers/Firefox/FirefoxEncryptedRecord.hpp"
#include "Private/Importers/Firefox/FirefoxLoginsFile.hpp"
#include "Private/Proxies/JSONFileProxy.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"

namespace Rellinor {

namespace {

using EncryptedLogins = std::vector<FirefoxEncryptedRecord>;

std::optional<std::string_view> textOf(const JSONObject& login, EncryptedKeys key) noexcept {
    return login.text(key);
}

std::optional<std::string_view> textOf(const SQLiteRow& login, EncryptedKeys key) noexcept {
    return login[rawValue(key)].and_then(&SQLiteValue::text);
}

/// The logins that have all of the fields.
EncryptedLogins mapFetched(const auto& encryptedLogins) {
    EncryptedLogins logins;
    for (const auto& login : encryptedLogins) {
        const auto host = textOf(login, EncryptedKeys::host);
        const auto username = textOf(login, EncryptedKeys::user);
        const auto password = textOf(login, EncryptedKeys::password);
        if (host && username && password) {
            logins.push_back({.host = *host, .password = *password, .username = *username});
        }
    }
    return logins;
}

EncryptedLogins fetchEncryptedLoginsFromJSON(const URL& file, ImportMemory& memory) {
    JSONFileProxy proxy(file, memory);
    const auto logins = proxy.containerObject<FirefoxLoginsFile>();
    return logins ? mapFetched(*logins) : EncryptedLogins();
}

EncryptedLogins fetchEncryptedLoginsFromSQLite(const URL& file, ImportMemory& memory) {
    SQLiteFileProxy proxy(std::string(file.path()), memory);
    return mapFetched(proxy.select(FirefoxImporter::statement()));
}

} // namespace

std::string FirefoxImporter::statement() {
    std::string columns;
    for (const std::string_view name : namesOfEncryptedKeys) {
        columns += columns.empty() ? "" : ", ";
        columns += name;
    }
    return "SELECT " + columns + " FROM moz_logins";
}

std::vector<FirefoxRecord> FirefoxImporter::read(const URL& url, ImportMemory& memory) {
    const FirefoxImportMetaData& meta = _meta.emplace(FirefoxImportMetaData::of(url));
    EncryptedLogins logins;
    if (meta.logins) {
        logins = fetchEncryptedLoginsFromJSON(*meta.logins, memory);
    } else if (meta.signons) {
        logins = fetchEncryptedLoginsFromSQLite(*meta.signons, memory);
    } else {
        // Quirk: the reason of a failure stays through later successes.
        _failureReason = FirefoxImportFailureReason::invalidProfile;
        throw TextError(
            "Failed to find logins.json or signons.sqlite for provided firefox profile folder " +
            std::string(url.path()));
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
