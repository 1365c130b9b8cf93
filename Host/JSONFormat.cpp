#include "Host/JSONFormat.hpp"

#include <cstdint>
#include <optional>
#include <ostream>

#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

namespace Rellinor::Host {

namespace {

namespace json = boost::json;

json::value toJSON(std::string_view text) {
    return json::string(text);
}

json::value toJSON(std::int64_t number) {
    return number;
}

template <typename Value>
json::value toJSON(const std::optional<Value>& optional) {
    return optional ? toJSON(*optional) : json::value();
}

json::object toJSON(const ImportedPasswordInfoProviding& password, Secrets secrets) {
    return {
        {"username", toJSON(password.username())},
        {"password", toJSON(shown(password.password(), secrets))},
        {"url", toJSON(password.url())},
        {"service", toJSON(password.service())},
        {"color", toJSON(password.color())},
        {"note", toJSON(password.note())},
        {"pwdChange", toJSON(password.pwdChange())},
    };
}

json::object toJSON(const ImportedNoteInfoProviding& note, Secrets /*secrets*/) {
    return {
        {"color", toJSON(note.color())},
        {"title", toJSON(note.title())},
        {"content", toJSON(note.content())},
    };
}

json::object toJSON(const ImportedCardInfoProviding& card, Secrets secrets) {
    return {
        {"cardNumber", toJSON(shown(card.cardNumber(), secrets))},
        {"custName", toJSON(card.custName())},
        {"holderName", toJSON(card.holderName())},
        {"cvv", toJSON(shown(card.cvv(), secrets))},
        {"pin", toJSON(shown(card.pin(), secrets))},
        {"note", toJSON(card.note())},
        {"expirationDay", toJSON(card.expirationDay())},
        {"expirationMonth", toJSON(card.expirationMonth())},
        {"expirationYear", toJSON(card.expirationYear())},
    };
}

/// Record by record, so that a long list never stands in memory a second time.
void writeList(std::string_view name, const auto& records, Secrets secrets, std::ostream& out) {
    out << '"' << name << "\":[";
    bool first = true;
    for (const auto& record : records) {
        out << (first ? "" : ",") << json::serialize(toJSON(*record, secrets));
        first = false;
    }
    out << ']';
}

} // namespace

void JSONFormat::write(std::string_view /*path*/, const ImportedRecords& records,
                       std::ostream& out) {
    out << '{';
    writeList("passwords", records.passwords, _secrets, out);
    out << ',';
    writeList("notes", records.notes, _secrets, out);
    out << ',';
    writeList("cards", records.cards, _secrets, out);
    out << "}\n";
}

void JSONFormat::writeFailure(const NSError& error, std::ostream& out) {
    const json::object details{{"domain", toJSON(error.domain())}, {"code", error.code()}};
    out << json::serialize(json::object{{"error", details}}) << '\n';
}

} // namespace Rellinor::Host
