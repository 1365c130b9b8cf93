#include "Private/Importers/LastPass/LastPassImporter.hpp"

#include <algorithm>
#include <span>
#include <string_view>

#include "Platform/URLHost.hpp"
#include "Private/Extensions/String.hpp"
#include "Private/Importers/LastPass/LastPassRecord.hpp"
#include "Private/Proxies/CSVFileProxy.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view hostOfSecureNotes = "sn";
constexpr std::string_view urlOfSecureNotes = "http://sn"; // as the product writes it
constexpr std::string_view nothingInRecord = "All the fileds appear to be empty";

// Quirk: a missing column counts as non-empty.
bool hasAtLeastOneNonEmptyValue(const CSVRecord& record,
                                std::span<const LastPassRecordKey> keys) noexcept {
    return std::ranges::any_of(keys, [&](LastPassRecordKey key) { return record[key] != ""; });
}

} // namespace

CSVKeyedRecords LastPassImporter::read(const URL& url, ImportMemory& memory) {
    CSVFileProxy file(url, memory);
    if (file.numberOfFields() != allLastPassRecordKeys.size()) {
        throw TextError("The provided CSV file doesnt have the expected number of fields");
    }
    return file.keyedRecords(csvHeaders(allLastPassRecordKeys));
}

bool LastPassImporter::isPassword(const RawRecord& record) noexcept {
    return !isNote(record);
}

bool LastPassImporter::isNote(const RawRecord& record) noexcept {
    const auto url = record[LastPassRecordKey::url];
    return url && (*url == urlOfSecureNotes || hasHost(*url, hostOfSecureNotes));
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
