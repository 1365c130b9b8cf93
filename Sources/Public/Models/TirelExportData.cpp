#include "Public/Models/TirelExportData.hpp"

#include <algorithm>
#include <ranges>

#include "Platform/Fault.hpp"
#include "Platform/WipedStack.hpp"
#include "Private/Importers/Tirel/TirelExportWriter.hpp"
#include "Private/Importers/Tirel/TirelImporter.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

using Login = TirelExportData::Password;
using Note = TirelExportData::Note;
using Card = TirelExportData::Card;
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

TirelLoginView viewOfLogin(const Login& login) noexcept {
    return {
        .color = login.color(),
        .custName = login.custName(),
        .loginName = login.loginName(),
        .note = login.note(),
        .pwd = login.pwd(),
        .pwdChange = login.pwdChange(),
        .url = login.url(),
    };
}

TirelNoteView viewOfNote(const Note& note) noexcept {
    return {.color = note.color(), .label = note.label(), .text = note.text()};
}

TirelCardView viewOfCard(const Card& card) noexcept {
    return {
        .cardNumber = card.cardNumber(),
        .custName = card.custName(),
        .holderName = card.holderName(),
        .cvv = card.cvv(),
        .pin = card.pin(),
        .note = card.note(),
        .expirationDay = card.expirationDate().day(),
        .expirationMonth = card.expirationDate().month(),
        .expirationYear = card.expirationDate().year(),
    };
}

// Kept out of line, as what decodes is.
[[gnu::noinline]] std::string encoded(const TirelExportData& data) {
    using std::views::transform;

    TirelExportWriter writer;
    writer.write(data.logins | transform(viewOfLogin), data.notes | transform(viewOfNote),
                 data.cards | transform(viewOfCard));
    return std::string(writer.written());
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
