#include "Host/JSONFormat.hpp"

#include <cstddef>
#include <ostream>
#include <span>

#include "Host/JSONText.hpp"
#include "Host/ReportJSON.hpp"

namespace Rellinor::Host {

namespace {

void writeFields(const ImportedPasswordInfoProviding& password, Secrets secrets, Door door,
                 JSONText& json) {
    json.member("username", password.username());
    json.member("password", shown(password.password(), secrets));
    json.member("url", password.url());
    json.member("service", password.service());
    json.member("color", password.color());
    json.member("note", password.note().transform(
                            [&](std::string_view note) { return shownNote(note, secrets, door); }));
    json.member("pwdChange", password.pwdChange());
}

void writeFields(const ImportedNoteInfoProviding& note, Secrets secrets, Door door,
                 JSONText& json) {
    json.member("color", note.color());
    json.member("title", note.title());
    json.member("content", shownNote(note.content(), secrets, door));
}

void writeFields(const ImportedCardInfoProviding& card, Secrets secrets, Door door,
                 JSONText& json) {
    json.member("cardNumber", shown(card.cardNumber(), secrets));
    json.member("custName", card.custName());
    json.member("holderName", card.holderName());
    json.member("cvv", shown(card.cvv(), secrets));
    json.member("pin", shown(card.pin(), secrets));
    json.member("note", shownNote(card.note(), secrets, door));
    json.member("expirationDay", card.expirationDay());
    json.member("expirationMonth", card.expirationMonth());
    json.member("expirationYear", card.expirationYear());
}

void writeExtras(std::span<const Extra> extras, Secrets secrets, JSONText& json) {
    json.key("extras");
    json.beginArray();
    for (const Extra& extra : extras) {
        json.beginObject();
        json.member("kind", identifier(extra.kind));
        json.member("label", extra.label);
        json.member("value", isSecret(extra.kind) ? shown(extra.value, secrets) : extra.value);
        json.endObject();
    }
    json.endArray();
}

/// Writes one import record by record, so that a long list never stands in memory a second time.
class Line {
public:
    Line(Secrets secrets, Door door, std::ostream& out) noexcept
        : _secrets(secrets), _door(door), _out(out) {}

    void write(const ImportedExport& imported) {
        const ImportedRecords& records = *imported.records;
        const Extras& extras = imported.extras;
        _json.beginObject();
        if (const auto layout = imported.report.layout(); layout && _door == Door::second) {
            _json.member("layout", identifier(*layout));
        }
        write("passwords", records.passwords, [&](std::size_t i) { return extras.ofPassword(i); });
        write("notes", records.notes, [&](std::size_t i) { return extras.ofNote(i); });
        write("cards", records.cards, [&](std::size_t i) { return extras.ofCard(i); });
        if (_door == Door::second) {
            _json.key("report");
            writeReport(imported.report, _json);
        }
        _json.endObject();
        flush();
        _out << '\n';
    }

private:
    void write(std::string_view name, const auto& records, const auto& extrasOf) {
        _json.key(name);
        _json.beginArray();
        for (std::size_t i = 0; i < records.size(); ++i) {
            _json.beginObject();
            writeFields(*records[i], _secrets, _door, _json);
            if (_door == Door::second) {
                writeExtras(extrasOf(i), _secrets, _json);
            }
            _json.endObject();
            flush();
        }
        _json.endArray();
    }

    void flush() {
        _out << _json.written();
        _json.clear();
    }

    Secrets _secrets;
    Door _door;
    std::ostream& _out;
    JSONText _json;
};

} // namespace

void JSONFormat::write(std::string_view /*path*/, const ImportedExport& imported,
                       std::ostream& out) {
    Line(_secrets, _door, out).write(imported);
}

void JSONFormat::writeFailure(const ImportedExport& failed, std::ostream& out) {
    JSONText json;
    json.beginObject();
    json.key("error");
    json.beginObject();
    json.member("domain", failed.records.error().domain());
    json.member("code", failed.records.error().code());
    json.endObject();
    if (_door == Door::second) {
        json.member("reason", identifier(failed.report.failure().reason));
    }
    json.endObject();
    out << json.written() << '\n';
}

} // namespace Rellinor::Host
