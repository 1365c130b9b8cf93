#include "Host/TirelFormat.hpp"

#include <cstddef>
#include <ostream>
#include <span>
#include <string>

#include <Rellinor/Models/TirelExportData.hpp>

#include "Host/JSONText.hpp"

namespace Rellinor::Host {

namespace {

/// A note, and below it what else the record holds.
std::string noteWith(std::string_view note, std::span<const Extra> extras) {
    std::string text(note);
    for (const Extra& extra : extras) {
        text += text.empty() ? "" : "\n";
        text += extra.label.empty() ? identifier(extra.kind) : extra.label;
        text += ": ";
        text += extra.value;
    }
    return text;
}

void member(auto key, const auto& value, JSONText& json) {
    json.member(stringValue(key), value);
}

void memberIfPresent(auto key, const auto& value, JSONText& json) {
    if (value) {
        member(key, *value, json);
    }
}

void writeEntry(const ImportedPasswordInfoProviding& password, std::span<const Extra> extras,
                JSONText& json) {
    using enum TirelExportData::Password::CodingKeys;
    member(color, password.color().value_or(0), json);
    memberIfPresent(custName, password.service(), json);
    member(loginName, password.username(), json);
    member(note, noteWith(password.note().value_or(""), extras), json);
    member(pwd, password.password(), json);
    memberIfPresent(pwdChange, password.pwdChange(), json);
    member(url, password.url(), json);
}

void writeEntry(const ImportedNoteInfoProviding& entry, std::span<const Extra> extras,
                JSONText& json) {
    using enum TirelExportData::Note::CodingKeys;
    member(color, entry.color().value_or(0), json);
    member(label, entry.title(), json);
    member(text, noteWith(entry.content(), extras), json);
}

void writeEntry(const ImportedCardInfoProviding& card, std::span<const Extra> extras,
                JSONText& json) {
    using enum TirelExportData::Card::CodingKeys;
    member(cardNumber, card.cardNumber(), json);
    member(custName, card.custName(), json);
    member(holderName, card.holderName(), json);
    member(cvv, card.cvv(), json);
    member(pin, card.pin(), json);
    member(note, noteWith(card.note(), extras), json);
    json.key(stringValue(expirationDate));
    json.beginObject();
    using Date = TirelExportData::Card::ExpirationDate::CodingKeys;
    member(Date::day, card.expirationDay(), json);
    member(Date::month, card.expirationMonth(), json);
    member(Date::year, card.expirationYear(), json);
    json.endObject();
}

} // namespace

void TirelFormat::finish(std::ostream& out) {
    using enum TirelExportData::CodingKeys;

    JSONText json;
    const auto writeList = [&](auto name, auto recordsOf, auto extrasOf) {
        json.key(stringValue(name));
        json.beginArray();
        for (const ImportedExport& imported : imports()) {
            const auto& records = (*imported.records).*recordsOf;
            for (std::size_t i = 0; i < records.size(); ++i) {
                json.beginObject();
                writeEntry(*records[i], (imported.extras.*extrasOf)(i), json);
                json.endObject();
                out << json.written(); // so that the text never stands in memory as a whole
                json.clear();
            }
        }
        json.endArray();
    };
    json.beginObject();
    writeList(logins, &ImportedRecords::passwords, &Extras::ofPassword);
    writeList(notes, &ImportedRecords::notes, &Extras::ofNote);
    writeList(cards, &ImportedRecords::cards, &Extras::ofCard);
    json.endObject();
    out << json.written() << '\n';
}

} // namespace Rellinor::Host
