#include "Private/Importers/LastPass/LastPassImporter.hpp"

#include <algorithm>
#include <span>
#include <string_view>

#include "Platform/URLHost.hpp"
#include "Private/Extensions/String.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/LastPass/LastPassRecord.hpp"
#include "Private/Proxies/CSVFileProxy.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view hostOfSecureNotes = "sn";
constexpr std::string_view urlOfSecureNotes = "http://sn"; // as the product writes it
constexpr Dropped nothingInRecord{.reason = LeftOutReason::empty, .field = {}};

// Quirk: a missing column counts as non-empty.
bool hasAtLeastOneNonEmptyValue(const CSVRecord& record,
                                std::span<const LastPassRecordKey> keys) noexcept {
    return std::ranges::any_of(keys, [&](LastPassRecordKey key) { return record[key] != ""; });
}

} // namespace

CSVKeyedRecords LastPassImporter::read(const ExportFile& file, ImportMemory& memory,
                                       Reporter* reporter) {
    CSVFileProxy proxy(file, memory, largestFileFor(reporter));
    const auto numberOfFields = proxy.numberOfFields();
    if (numberOfFields != allLastPassRecordKeys.size()) {
        reportFailure(proxy, numberOfFields ? FailureReason::wrongColumns : FailureReason::noRows,
                      reporter);
        throw TextError("The provided CSV file doesnt have the expected number of fields");
    }
    reportLines(proxy, reporter);
    return proxy.keyedRecords(csvHeaders(allLastPassRecordKeys));
}

bool LastPassImporter::isPassword(const RawRecord& record) noexcept {
    return !isNote(record);
}

bool LastPassImporter::isNote(const RawRecord& record) noexcept {
    const auto url = record[LastPassRecordKey::url];
    return url && (*url == urlOfSecureNotes || hasHost(*url, hostOfSecureNotes));
}

void LastPassImporter::tellUnread(const RawRecord& record, Reporter& reporter) {
    const auto tell = [&](LastPassRecordKey key, std::string_view nothing) {
        const std::string_view text = record[key].value_or("");
        if (!text.empty() && text != nothing) {
            reporter.unread(rawValue(key));
        }
    };
    if (isPassword(record)) {
        tell(LastPassRecordKey::extra, "");
    } else {
        tell(LastPassRecordKey::username, "");
        tell(LastPassRecordKey::password, "");
    }
    tell(LastPassRecordKey::grouping, "");
    tell(LastPassRecordKey::favorite, "0");
}

Built<ImportedPassword> LastPassImporter::buildPassword(const RawRecord& record) noexcept {
    if (!hasAtLeastOneNonEmptyValue(record, keys(LastPassRecordType::login))) {
        return std::unexpected(nothingInRecord);
    }
    // Quirk: the extra text of a login is left out.
    return ImportedPassword{
        record[LastPassRecordKey::username].value_or(""),
        record[LastPassRecordKey::password].value_or(""),
        record[LastPassRecordKey::url].value_or(""),
        record[LastPassRecordKey::name], // service
    };
}

Built<ImportedNote> LastPassImporter::buildNote(const RawRecord& record) noexcept {
    if (!hasAtLeastOneNonEmptyValue(record, keys(LastPassRecordType::secureNote))) {
        return std::unexpected(nothingInRecord);
    }
    return ImportedNote{
        std::nullopt, // color
        record[LastPassRecordKey::name].value_or(""),
        record[LastPassRecordKey::extra].value_or(""),
    };
}

} // namespace Rellinor
