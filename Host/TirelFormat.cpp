#include "Host/TirelFormat.hpp"

#include <cstddef>
#include <ostream>
#include <span>
#include <string>
#include <utility>

#include <boost/json/serialize.hpp>
#include <boost/json/value_from.hpp>

#include <Rellinor/Models/TirelExportDataJSON.hpp>

namespace Rellinor::Host {

namespace {

namespace json = boost::json;

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

TirelExportData::Password exported(const ImportedPasswordInfoProviding& password,
                                   std::span<const Extra> extras) {
    return {
        password.color().value_or(0),
        password.service().transform([](std::string_view name) { return std::string(name); }),
        std::string(password.username()),
        noteWith(password.note().value_or(""), extras),
        std::string(password.password()),
        password.pwdChange(),
        std::string(password.url()),
    };
}

TirelExportData::Note exported(const ImportedNoteInfoProviding& note,
                               std::span<const Extra> extras) {
    return {
        note.color().value_or(0),
        std::string(note.title()),
        noteWith(note.content(), extras),
    };
}

TirelExportData::Card exported(const ImportedCardInfoProviding& card,
                               std::span<const Extra> extras) {
    return {
        std::string(card.cardNumber()),
        std::string(card.custName()),
        std::string(card.holderName()),
        std::string(card.cvv()),
        std::string(card.pin()),
        noteWith(card.note(), extras),
        {card.expirationDay(), card.expirationMonth(), card.expirationYear()},
    };
}

} // namespace

void TirelFormat::write(std::string_view /*path*/, const ImportedExport& imported,
                        std::ostream& /*out*/) {
    const ImportedRecords& records = *imported.records;
    const Extras& extras = imported.extras;
    for (std::size_t i = 0; i < records.passwords.size(); ++i) {
        _data.logins.push_back(exported(*records.passwords[i], extras.ofPassword(i)));
    }
    for (std::size_t i = 0; i < records.notes.size(); ++i) {
        _data.notes.push_back(exported(*records.notes[i], extras.ofNote(i)));
    }
    for (std::size_t i = 0; i < records.cards.size(); ++i) {
        _data.cards.push_back(exported(*records.cards[i], extras.ofCard(i)));
    }
}

void TirelFormat::finish(std::ostream& out) {
    // The data goes before the text comes, and the text is written as it arises.
    const json::value document = json::value_from(std::exchange(_data, {}));
    out << document << '\n';
}

} // namespace Rellinor::Host
