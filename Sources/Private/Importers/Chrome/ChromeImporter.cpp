#include "Private/Importers/Chrome/ChromeImporter.hpp"

#include <optional>
#include <span>
#include <string_view>

#include "Private/Importers/Chrome/ChromeRecord.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Private/Text/Base64.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view missingFields = "Record did not contain expected fields";

std::optional<SQLiteValue> valueOf(const SQLiteRow& record, ChromeRecordKey key) noexcept {
    return record[rawValue(key)];
}

std::string_view base64In(ImportMemory& memory, std::span<const char> bytes) {
    const std::span<char> text = memory.allocate(sizeOfBase64(bytes.size()));
    writeBase64(bytes, text);
    return {text.data(), text.size()};
}

} // namespace

std::string ChromeImporter::statement() {
    std::string columns;
    std::string conditions;
    for (const ChromeRecordKey key : selectedChromeRecordKeys) {
        const std::string name(rawValue(key));
        columns += (columns.empty() ? "" : ", ") + name;
        conditions += (conditions.empty() ? "" : " AND ") + name;
        conditions += " IS NOT NULL AND " + name + " != ''";
    }
    return "SELECT " + columns + " FROM logins WHERE blacklisted_by_user = 0 AND " + conditions;
}

SQLiteRows ChromeImporter::read(const URL& url, ImportMemory& memory) {
    return SQLiteFileProxy(std::string(url.path()), memory).select(statement());
}

Built<ImportedPassword> ChromeImporter::buildPassword(const RawRecord& record) {
    const auto username = valueOf(record, ChromeRecordKey::username).and_then(&SQLiteValue::text);
    if (!username) {
        return std::unexpected(missingFields);
    }
    const auto url = valueOf(record, ChromeRecordKey::url).and_then(&SQLiteValue::text);
    if (!url) {
        return std::unexpected(missingFields);
    }
    // Quirk: a login whose password is a text is dropped.
    const auto password = valueOf(record, ChromeRecordKey::password).and_then(&SQLiteValue::blob);
    if (!password) {
        return std::unexpected(missingFields);
    }
    return ImportedPassword{
        *username,
        base64In(record.memory(), *password),
        *url,
    };
}

} // namespace Rellinor
