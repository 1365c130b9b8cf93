#include "Host/TirelFormat.hpp"

#include <ostream>
#include <string>
#include <utility>

#include <boost/json/serialize.hpp>
#include <boost/json/value_from.hpp>

#include <Rellinor/Models/TirelExportDataJSON.hpp>

namespace Rellinor::Host {

namespace {

namespace json = boost::json;

TirelExportData::Password exported(const ImportedPasswordInfoProviding& password) {
    return {
        password.color().value_or(0),
        password.service().transform([](std::string_view name) { return std::string(name); }),
        std::string(password.username()),
        std::string(password.note().value_or("")),
        std::string(password.password()),
        password.pwdChange(),
        std::string(password.url()),
    };
}

TirelExportData::Note exported(const ImportedNoteInfoProviding& note) {
    return {
        note.color().value_or(0),
        std::string(note.title()),
        std::string(note.content()),
    };
}

TirelExportData::Card exported(const ImportedCardInfoProviding& card) {
    return {
        std::string(card.cardNumber()),
        std::string(card.custName()),
        std::string(card.holderName()),
        std::string(card.cvv()),
        std::string(card.pin()),
        std::string(card.note()),
        {card.expirationDay(), card.expirationMonth(), card.expirationYear()},
    };
}

} // namespace

void TirelFormat::write(std::string_view /*path*/, const ImportedRecords& records,
                        std::ostream& /*out*/) {
    for (const auto& password : records.passwords) {
        _data.logins.push_back(exported(*password));
    }
    for (const auto& note : records.notes) {
        _data.notes.push_back(exported(*note));
    }
    for (const auto& card : records.cards) {
        _data.cards.push_back(exported(*card));
    }
}

void TirelFormat::finish(std::ostream& out) {
    // Not by `encode`: that escapes characters which stand as they are in exports of this tool.
    // The data goes before the text comes, and the text is written as it arises.
    const json::value document = json::value_from(std::exchange(_data, {}));
    out << document << '\n';
}

} // namespace Rellinor::Host
