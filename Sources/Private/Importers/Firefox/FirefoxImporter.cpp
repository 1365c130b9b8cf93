#include "Private/Importers/Firefox/FirefoxImporter.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"
#include "Private/Extensions/String.hpp"
#include "Private/Importers/DatabaseImports.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/Firefox/EncryptedKeys.hpp"
#include "Private/Importers/Firefox/FirefoxLoginsFile.hpp"
#include "Private/Proxies/JSONFileProxy.hpp"

namespace Rellinor {

namespace {

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

/// The raw records of the logins that have all of the fields. The others are told to the reporter,
/// which may be null.
std::vector<FirefoxRecord> mapFetched(const auto& encryptedLogins, Reporter* reporter) {
    using enum FirefoxRecordKey;
    constexpr auto keys = keysUpTo<EncryptedKeys::password>();
    constexpr auto recordKeys = std::array{hostname, username, password};
    static_assert(recordKeys.size() == keys.size());

    std::vector<FirefoxRecord> records;
    std::uint64_t number = 0;
    for (const auto& login : encryptedLogins) {
        ++number;
        FirefoxRecord record;
        const auto lacking = std::ranges::find_if(keys, [&](EncryptedKeys key) {
            const auto text = fieldOf(login, key).text;
            record.set(recordKeys.at(indexOf(key)), text.value_or(""));
            return !text;
        });
        if (lacking == keys.end()) {
            records.push_back(record);
        } else if (reporter != nullptr) {
            reporter->beginRecord(number);
            reporter->leftOut(fieldOf(login, *lacking).isThere ? LeftOutReason::fieldOfOtherType
                                                               : LeftOutReason::missingField,
                              rawValue(*lacking));
        }
    }
    return records;
}

std::vector<FirefoxRecord> fetchEncryptedLoginsFromJSON(const URL& file, ImportMemory& memory,
                                                        Reporter* reporter) {
    JSONFileProxy proxy(file, memory, largestFileFor(reporter));
    const auto logins = proxy.containerObject<FirefoxLoginsFile>();
    if (!logins) {
        reportFailure(proxy, reporter);
        return {};
    }
    return mapFetched(*logins, reporter);
}

std::vector<FirefoxRecord> fetchEncryptedLoginsFromSQLite(const URL& file, ImportMemory& memory,
                                                          Reporter* reporter) {
    return mapFetched(rowsOfSource(file, FirefoxImporter::statement(), memory, reporter), reporter);
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

std::vector<FirefoxRecord> FirefoxImporter::read(const ExportFile& file, ImportMemory& memory,
                                                 Reporter* reporter) {
    const FirefoxImportMetaData& meta = _meta.emplace(
        file.url() ? FirefoxImportMetaData::of(*file.url()) : FirefoxImportMetaData());
    if (meta.logins) {
        return fetchEncryptedLoginsFromJSON(*meta.logins, memory, reporter);
    }
    if (meta.signons) {
        return fetchEncryptedLoginsFromSQLite(*meta.signons, memory, reporter);
    }
    // Quirk: the reason of a failure stays through later successes.
    _failureReason = FirefoxImportFailureReason::invalidProfile;
    if (reporter != nullptr) {
        reporter->fail(FailureReason::noStore);
    }
    throw TextError(
        "Failed to find logins.json or signons.sqlite for provided firefox profile folder " +
        std::string(file.name()));
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
