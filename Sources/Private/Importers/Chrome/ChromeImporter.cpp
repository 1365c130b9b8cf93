#include "Private/Importers/Chrome/ChromeImporter.hpp"

#include <optional>
#include <string_view>

#include "Private/Importers/Chrome/ChromeRecord.hpp"
#include "Private/Importers/Chrome/EncryptedBytes.hpp"
#include "Private/Importers/DatabaseImports.hpp"

namespace Rellinor {

namespace {

std::unexpected<Dropped> ofOtherType(ChromeRecordKey key) noexcept {
    return std::unexpected(
        Dropped{.reason = LeftOutReason::fieldOfOtherType, .field = rawValue(key)});
}

std::optional<SQLiteValue> valueOf(const SQLiteRow& record, ChromeRecordKey key) noexcept {
    return record[rawValue(key)];
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

SQLiteRows ChromeImporter::read(const ExportFile& file, ImportMemory& memory, Reporter* reporter) {
    return rowsOfSource(file, statement(), memory, reporter);
}

Built<ImportedPassword> ChromeImporter::buildPassword(const RawRecord& record) {
    const auto username = valueOf(record, ChromeRecordKey::username).and_then(&SQLiteValue::text);
    if (!username) {
        return ofOtherType(ChromeRecordKey::username);
    }
    const auto url = valueOf(record, ChromeRecordKey::url).and_then(&SQLiteValue::text);
    if (!url) {
        return ofOtherType(ChromeRecordKey::url);
    }
    // Quirk: a login whose password is a text is dropped.
    const auto password = valueOf(record, ChromeRecordKey::password).and_then(&SQLiteValue::blob);
    if (!password) {
        return ofOtherType(ChromeRecordKey::password);
    }
    return ImportedPassword{
        *username,
        base64Of(*password, record.memory()),
        *url,
    };
}

} // namespace Rellinor
