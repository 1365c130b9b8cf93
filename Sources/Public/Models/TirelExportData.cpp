#include "Public/Models/TirelExportData.hpp"

#include <algorithm>

#include "Platform/Fault.hpp"
#include "Platform/WipedStack.hpp"
#include "Private/Importers/Tirel/TirelImporter.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Text/JSONWriter.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

using Login = TirelExportData::Password;
using Note = TirelExportData::Note;
using Card = TirelExportData::Card;
using Date = Card::ExpirationDate;
using Key = TirelRecordKey;

// Decoding

std::optional<std::string> optionalTextOf(const TirelRecord& record, Key key) {
    return record[key].and_then(&JSONValue::text).transform([](std::string_view text) {
        return std::string(text);
    });
}

std::optional<std::int64_t> optionalIntegerOf(const TirelRecord& record, Key key) noexcept {
    return record[key].and_then(&JSONValue::integer);
}

// What is required is there: `TirelExportFile` has looked.

std::string textOf(const TirelRecord& record, Key key) {
    auto text = optionalTextOf(record, key);
    require(text.has_value());
    return *std::move(text);
}

std::int64_t integerOf(const TirelRecord& record, Key key) noexcept {
    const auto integer = optionalIntegerOf(record, key);
    require(integer.has_value());
    return *integer;
}

Login loginOf(const TirelRecord& record) {
    return {
        integerOf(record, Key::color),
        optionalTextOf(record, Key::custName),
        textOf(record, Key::username), // loginName
        textOf(record, Key::note),
        textOf(record, Key::password), // pwd
        optionalIntegerOf(record, Key::pwdChange),
        textOf(record, Key::url),
    };
}

Note noteOf(const TirelRecord& record) {
    return {
        integerOf(record, Key::color),
        textOf(record, Key::label),
        textOf(record, Key::text),
    };
}

Card cardOf(const TirelRecord& record) {
    return {
        textOf(record, Key::cardNumber),
        textOf(record, Key::custName),
        textOf(record, Key::holderName),
        textOf(record, Key::cvv),
        textOf(record, Key::pin),
        textOf(record, Key::note),
        {
            integerOf(record, Key::expirationDay),
            integerOf(record, Key::expirationMonth),
            integerOf(record, Key::expirationYear),
        },
    };
}

std::size_t countOf(const TirelExportFile& file, bool (*isOfKind)(const TirelRecord&) noexcept) {
    return static_cast<std::size_t>(std::ranges::count_if(file, isOfKind));
}

// Kept out of line: what it had on the stack lies beyond the caller's end, where it is wiped.
[[gnu::noinline]] std::optional<TirelExportData> decoded(std::string_view text) {
    ImportMemory memory;
    text.remove_prefix(lengthOfByteOrderMark(text));
    auto document = JSONDocument::parsed(text, TirelExportFile::keys, memory);
    const auto file = document ? TirelExportFile::decoded(*std::move(document)) : std::nullopt;
    if (!file) {
        return std::nullopt;
    }
    TirelExportData data;
    // A list that grew would leave copies of its short texts behind.
    data.logins.reserve(countOf(*file, TirelImporter::isPassword));
    data.notes.reserve(countOf(*file, TirelImporter::isNote));
    data.cards.reserve(countOf(*file, TirelImporter::isCard));
    for (const TirelRecord& record : *file) {
        if (TirelImporter::isPassword(record)) {
            data.logins.push_back(loginOf(record));
        } else if (TirelImporter::isNote(record)) {
            data.notes.push_back(noteOf(record));
        } else {
            data.cards.push_back(cardOf(record));
        }
    }
    return data;
}

// Encoding

/// Writes a value with all that is in it.
class Encoder {
public:
    void write(const TirelExportData& data) {
        using enum TirelExportData::CodingKeys;
        _json.beginObject();
        member(logins, data.logins);
        member(notes, data.notes);
        member(cards, data.cards);
        _json.endObject();
    }

    [[nodiscard]] std::string_view written() noexcept { return _json.written(); }

private:
    void write(const Login& login) {
        using enum Login::CodingKeys;
        _json.beginObject();
        member(color, login.color());
        memberIfPresent(custName, login.custName());
        member(loginName, login.loginName());
        member(note, login.note());
        member(pwd, login.pwd());
        memberIfPresent(pwdChange, login.pwdChange());
        member(url, login.url());
        _json.endObject();
    }

    void write(const Note& note) {
        using enum Note::CodingKeys;
        _json.beginObject();
        member(color, note.color());
        member(label, note.label());
        member(text, note.text());
        _json.endObject();
    }

    void write(const Card& card) {
        using enum Card::CodingKeys;
        _json.beginObject();
        member(cardNumber, card.cardNumber());
        member(custName, card.custName());
        member(holderName, card.holderName());
        member(cvv, card.cvv());
        member(pin, card.pin());
        member(note, card.note());
        member(expirationDate, card.expirationDate());
        _json.endObject();
    }

    void write(const Date& date) {
        using enum Date::CodingKeys;
        _json.beginObject();
        member(day, date.day());
        member(month, date.month());
        member(year, date.year());
        _json.endObject();
    }

    template <typename Entry>
    void write(const std::vector<Entry>& entries) {
        _json.beginArray();
        for (const Entry& entry : entries) {
            write(entry);
        }
        _json.endArray();
    }

    void write(std::string_view text) { _json.string(text); }

    void write(std::int64_t integer) { _json.integer(integer); }

    void member(auto key, const auto& value) {
        _json.key(stringValue(key));
        write(value);
    }

    void memberIfPresent(auto key, const auto& value) {
        if (value) {
            member(key, *value);
        }
    }

    JSONWriter _json;
};

// Kept out of line, as what decodes is.
[[gnu::noinline]] std::string encoded(const TirelExportData& data) {
    Encoder encoder;
    encoder.write(data);
    return std::string(encoder.written());
}

} // namespace

std::optional<TirelExportData> TirelExportData::decode(std::string_view text) {
    auto data = decoded(text);
    wipeStack();
    return data;
}

std::string TirelExportData::encode() const {
    std::string text = encoded(*this);
    wipeStack();
    return text;
}

TirelDictionary TirelExportData::Password::tirelRecord() const {
    TirelDictionary record{{
        {rawValue(Key::username), loginName()},
        {rawValue(Key::password), pwd()},
        {rawValue(Key::url), url()},
        {rawValue(Key::note), note()},
        {rawValue(Key::color), color()},
    }};
    if (const auto name = custName()) {
        record.values.emplace(rawValue(Key::custName), *name);
    }
    if (const auto time = pwdChange()) {
        record.values.emplace(rawValue(Key::pwdChange), *time);
    }
    return record;
}

TirelDictionary TirelExportData::Card::tirelRecord() const {
    return {{
        {rawValue(Key::cardNumber), cardNumber()},
        {rawValue(Key::custName), custName()},
        {rawValue(Key::holderName), holderName()},
        {rawValue(Key::cvv), cvv()},
        {rawValue(Key::pin), pin()},
        {rawValue(Key::note), note()},
        {rawValue(Key::expirationDay), expirationDate().day()},
        {rawValue(Key::expirationMonth), expirationDate().month()},
        {rawValue(Key::expirationYear), expirationDate().year()},
    }};
}

} // namespace Rellinor
