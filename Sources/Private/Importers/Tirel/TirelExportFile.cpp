#include "Private/Importers/Tirel/TirelExportFile.hpp"

namespace Rellinor {

namespace {

using Member = TirelExportMember;

bool hasText(const JSONObject& entry, Member member) noexcept {
    return entry[member].and_then(&JSONValue::text).has_value();
}

bool hasInteger(const JSONObject& entry, Member member) noexcept {
    return entry[member].and_then(&JSONValue::integer).has_value();
}

/// Whether an optional member is missing or null.
bool lacks(const JSONObject& entry, Member member) noexcept {
    const auto value = entry[member];
    return !value || value->isNull();
}

bool isLogin(const JSONObject& entry) noexcept {
    return hasInteger(entry, Member::color) &&
           (lacks(entry, Member::custName) || hasText(entry, Member::custName)) &&
           hasText(entry, Member::loginName) && hasText(entry, Member::note) &&
           hasText(entry, Member::pwd) &&
           (lacks(entry, Member::pwdChange) || hasInteger(entry, Member::pwdChange)) &&
           hasText(entry, Member::url);
}

bool isNote(const JSONObject& entry) noexcept {
    return hasInteger(entry, Member::color) && hasText(entry, Member::label) &&
           hasText(entry, Member::text);
}

bool isExpirationDate(const JSONObject& date) noexcept {
    return hasInteger(date, Member::day) && hasInteger(date, Member::month) &&
           hasInteger(date, Member::year);
}

bool isCard(const JSONObject& entry) noexcept {
    const auto date = entry[Member::expirationDate].and_then(&JSONValue::object);
    return hasText(entry, Member::cardNumber) && hasText(entry, Member::custName) &&
           hasText(entry, Member::holderName) && hasText(entry, Member::cvv) &&
           hasText(entry, Member::pin) && hasText(entry, Member::note) && date &&
           isExpirationDate(*date);
}

/// Adds the records of a list; false if it is not there, or an entry is of another shape.
bool add(std::vector<TirelRecord>& records, const std::optional<JSONValue>& list,
         TirelRecordType type, bool (*isOfType)(const JSONObject&) noexcept) {
    const auto entries = list.and_then(&JSONValue::objects);
    if (!entries) {
        return false;
    }
    for (const JSONObject& entry : *entries) {
        if (!isOfType(entry)) {
            return false;
        }
        records.emplace_back(type, entry);
    }
    return true;
}

} // namespace

std::optional<TirelExportFile> TirelExportFile::decoded(JSONDocument document) {
    const auto top = document.root().object();
    std::vector<TirelRecord> records;
    const bool isExport =
        top && add(records, (*top)[Member::logins], TirelRecordType::webPassword, isLogin) &&
        add(records, (*top)[Member::notes], TirelRecordType::secureNote, isNote) &&
        add(records, (*top)[Member::cards], TirelRecordType::creditCard, isCard);
    if (!isExport) {
        return std::nullopt;
    }
    return TirelExportFile(std::move(document), std::move(records));
}

} // namespace Rellinor
