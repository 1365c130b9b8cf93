#include "Private/Importers/KeePass/KeePassImporter.hpp"

#include <cstddef>
#include <span>
#include <string_view>

#include "Platform/Fault.hpp"
#include "Private/Extensions/String.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/CSVFileProxy.hpp"

namespace Rellinor {

namespace {

std::unexpected<Dropped> missing(KeePassRecordKey key) noexcept {
    return std::unexpected(Dropped{.reason = LeftOutReason::missingField, .field = rawValue(key)});
}

// Quirk: a five-column export of KeePassXC is taken for the classic fork.
std::optional<KeePassFork> forkWithColumns(std::size_t numberOfFields) noexcept {
    for (const KeePassFork fork : {KeePassFork::keepass, KeePassFork::keepassXC}) {
        if (numberOfFields == allKeys(fork).size()) {
            return fork;
        }
    }
    return std::nullopt;
}

/// Absent if the reader does not find the headers.
std::optional<CSVKeyedRecords> keyedRecords(CSVFileProxyType& file,
                                            std::span<const CSVHeader> expectedHeaders) {
    try {
        return file.keyedRecords(expectedHeaders);
    } catch (const TextError&) {
        return std::nullopt;
    }
}

} // namespace

CSVKeyedRecords KeePassImporter::read(const ExportFile& file, ImportMemory& memory,
                                      Reporter* reporter) {
    CSVFileProxy proxy(file, memory, largestFileFor(reporter));
    try {
        CSVKeyedRecords records = read(proxy);
        reportLines(proxy, reporter);
        return records;
    } catch (const TextError&) {
        const bool hasText = !proxy.text().empty();
        const bool hasRows = hasText && proxy.numberOfFields().has_value();
        reportFailure(proxy, hasRows ? FailureReason::wrongColumns : FailureReason::noRows,
                      reporter);
        throw;
    }
}

CSVKeyedRecords KeePassImporter::read(CSVFileProxyType& file) {
    const auto numberOfFields = file.numberOfFields();
    if (!numberOfFields) {
        throw TextError("The provided CSV file does not have any fields");
    }
    const auto recognised = forkWithColumns(*numberOfFields);
    if (!recognised) {
        throw TextError("Unrecognized KeePass fork: the provided CSV file doesnt have the expected "
                        "number of fields for any supported fork");
    }
    // Quirk: the fork is remembered even if its headers are not found.
    _fork = recognised;
    if (auto records = keyedRecords(file, allKeys(*recognised))) {
        return *std::move(records);
    }
    if (auto records = keyedRecords(file, requiredKeys(*recognised))) {
        return *std::move(records);
    }
    throw TextError("The provided CSV field doesn't have the expected fields");
}

bool KeePassImporter::isPassword(const RawRecord& /*record*/) const noexcept {
    return _fork.has_value();
}

void KeePassImporter::tellUnread(const RawRecord& record, Reporter& reporter) {
    for (const KeePassRecordKey key :
         {KeePassRecordKey::comments, KeePassRecordKey::group, KeePassRecordKey::notes}) {
        if (!record[key].value_or("").empty()) {
            reporter.unread(rawValue(key));
        }
    }
}

Built<ImportedPassword> KeePassImporter::buildPassword(const RawRecord& record) const noexcept {
    require(_fork.has_value());
    return _fork == KeePassFork::keepass ? buildPasswordForKeepassOriginal(record)
                                         : buildPasswordForKeepassXC(record);
}

Built<ImportedPassword>
KeePassImporter::buildPasswordForKeepassOriginal(const RawRecord& record) noexcept {
    const auto site = record[KeePassRecordKey::site];
    const auto login = record[KeePassRecordKey::login];
    const auto password = record[KeePassRecordKey::password];
    if (!site) {
        return missing(KeePassRecordKey::site);
    }
    if (!login) {
        return missing(KeePassRecordKey::login);
    }
    if (!password) {
        return missing(KeePassRecordKey::password);
    }
    // Quirk: the comments are left out.
    return ImportedPassword{
        *login, *password, *site,
        record[KeePassRecordKey::account], // service
    };
}

Built<ImportedPassword>
KeePassImporter::buildPasswordForKeepassXC(const RawRecord& record) noexcept {
    const auto url = record[KeePassRecordKey::url];
    const auto username = record[KeePassRecordKey::username];
    const auto password = record[KeePassRecordKey::password];
    if (!url) {
        return missing(KeePassRecordKey::url);
    }
    if (!username) {
        return missing(KeePassRecordKey::username);
    }
    if (!password) {
        return missing(KeePassRecordKey::password);
    }
    // Quirk: the group and the notes are left out.
    return ImportedPassword{
        *username, *password, *url,
        record[KeePassRecordKey::title], // service
    };
}

} // namespace Rellinor
