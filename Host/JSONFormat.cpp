#include "Host/JSONFormat.hpp"

#include <cstddef>
#include <ostream>
#include <span>

#include "Host/JSONText.hpp"
#include "Host/ReportJSON.hpp"

namespace Rellinor::Host {

namespace {

void writeFields(const ImportedPasswordInfoProviding& password, const Masking& masking,
                 JSONText& json) {
    json.member("username", masking.shown(Field::loginUsername, password.username()));
    json.member("password", masking.shown(Field::loginPassword, password.password()));
    json.member("url", masking.shown(Field::loginURL, password.url()));
    json.member("service", masking.shown(Field::loginService, password.service()));
    json.member("color", password.color());
    json.member("note", masking.shown(Field::loginNote, password.note()));
    json.member("pwdChange", password.pwdChange());
}

void writeFields(const ImportedNoteInfoProviding& note, const Masking& masking, JSONText& json) {
    json.member("color", note.color());
    json.member("title", masking.shown(Field::noteTitle, note.title()));
    json.member("content", masking.shown(Field::noteContent, note.content()));
}

void writeFields(const ImportedCardInfoProviding& card, const Masking& masking, JSONText& json) {
    json.member("cardNumber", masking.shown(Field::cardNumber, card.cardNumber()));
    json.member("custName", masking.shown(Field::cardName, card.custName()));
    json.member("holderName", masking.shown(Field::cardHolder, card.holderName()));
    json.member("cvv", masking.shown(Field::cardCVV, card.cvv()));
    json.member("pin", masking.shown(Field::cardPIN, card.pin()));
    json.member("note", masking.shown(Field::cardNote, card.note()));
    json.member("expirationDay", card.expirationDay());
    json.member("expirationMonth", card.expirationMonth());
    json.member("expirationYear", card.expirationYear());
}

void writeExtras(std::span<const Extra> extras, const Masking& masking, JSONText& json) {
    json.key("extras");
    json.beginArray();
    for (const Extra& extra : extras) {
        json.beginObject();
        json.member("kind", identifier(extra.kind));
        json.member("label", extra.label);
        json.member("value", masking.shown(extra));
        json.endObject();
    }
    json.endArray();
}

/// Writes one import record by record, so that a long list never stands in memory a second time.
class Line {
public:
    Line(const Masking& masking, Door door, std::ostream& out) noexcept
        : _masking(masking), _door(door), _out(out) {}

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
            writeFields(*records[i], _masking, _json);
            if (_door == Door::second) {
                writeExtras(extrasOf(i), _masking, _json);
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

    const Masking& _masking;
    Door _door;
    std::ostream& _out;
    JSONText _json;
};

} // namespace

void JSONFormat::write(std::string_view /*path*/, const ImportedExport& imported,
                       const Masking& masking, std::ostream& out) {
    Line(masking, _door, out).write(imported);
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
