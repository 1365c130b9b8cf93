#include "Private/Importers/Tirel/TirelExportWriter.hpp"

namespace Rellinor {

void TirelExportWriter::write(const TirelLoginView& entry) {
    using enum TirelExportMember;
    _json.beginObject();
    member(color, entry.color);
    memberIfPresent(custName, entry.custName);
    member(loginName, entry.loginName);
    member(note, entry.note);
    member(pwd, entry.pwd);
    memberIfPresent(pwdChange, entry.pwdChange);
    member(url, entry.url);
    _json.endObject();
}

void TirelExportWriter::write(const TirelNoteView& entry) {
    using enum TirelExportMember;
    _json.beginObject();
    member(color, entry.color);
    member(label, entry.label);
    member(text, entry.text);
    _json.endObject();
}

void TirelExportWriter::write(const TirelCardView& entry) {
    using enum TirelExportMember;
    _json.beginObject();
    member(cardNumber, entry.cardNumber);
    member(custName, entry.custName);
    member(holderName, entry.holderName);
    member(cvv, entry.cvv);
    member(pin, entry.pin);
    member(note, entry.note);
    _json.key(rawValue(expirationDate));
    _json.beginObject();
    member(day, entry.expirationDay);
    member(month, entry.expirationMonth);
    member(year, entry.expirationYear);
    _json.endObject();
    _json.endObject();
}

void TirelExportWriter::member(TirelExportMember key, std::string_view value) {
    _json.key(rawValue(key));
    _json.string(value);
}

void TirelExportWriter::member(TirelExportMember key, std::int64_t value) {
    _json.key(rawValue(key));
    _json.integer(value);
}

void TirelExportWriter::memberIfPresent(TirelExportMember key, const auto& value) {
    if (value) {
        member(key, *value);
    }
}

} // namespace Rellinor
