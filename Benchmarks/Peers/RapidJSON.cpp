// RapidJSON builds a document in the text itself.

#include <stdexcept>
#include <utility>

#include <rapidjson/document.h>

#include "Benchmarks/Peers/Peers.hpp"
#include "Benchmarks/Peers/PlainRecords.hpp"
#include "Benchmarks/Peers/Text.hpp"

namespace Rellinor::Benchmarks {

namespace {

using Value = rapidjson::Value;

std::string textOf(const Value& value) {
    return {value.GetString(), value.GetStringLength()};
}

std::string textOf(const Value& object, const char* name) {
    return textOf(object[name]);
}

void parse(rapidjson::Document& document, char* text) {
    if (document.ParseInsitu(text).HasParseError()) {
        throw std::runtime_error("the text cannot be parsed");
    }
}

PlainTirelLogin tirelLogin(const Value& login) {
    PlainTirelLogin plain;
    plain.username = textOf(login, "loginName");
    plain.password = textOf(login, "pwd");
    plain.url = textOf(login, "url");
    plain.note = textOf(login, "note");
    plain.color = login["color"].GetInt64();
    if (const auto name = login.FindMember("custName"); name != login.MemberEnd()) {
        plain.service = textOf(name->value);
    }
    if (const auto change = login.FindMember("pwdChange"); change != login.MemberEnd()) {
        plain.pwdChange = change->value.GetInt64();
    }
    return plain;
}

PlainCard card(const Value& card) {
    const Value& expiration = card["expirationDate"];
    return {textOf(card, "cardNumber"),   textOf(card, "custName"),
            textOf(card, "holderName"),   textOf(card, "cvv"),
            textOf(card, "pin"),          textOf(card, "note"),
            expiration["day"].GetInt64(), expiration["month"].GetInt64(),
            expiration["year"].GetInt64()};
}

TirelRecords tirel(const std::filesystem::path& file) {
    std::string text = contentsOf(file);
    rapidjson::Document document;
    parse(document, text.data());
    TirelRecords records;
    for (const Value& login : document["logins"].GetArray()) {
        records.logins.push_back(tirelLogin(login));
    }
    for (const Value& note : document["notes"].GetArray()) {
        records.notes.push_back(
            {{textOf(note, "label"), textOf(note, "text")}, note["color"].GetInt64()});
    }
    for (const Value& each : document["cards"].GetArray()) {
        records.cards.push_back(card(each));
    }
    return records;
}

void addWebForm(const Value& form, NamedRecords& records) {
    const Value& contents = form["secureContents"];
    const Value* username = nullptr;
    const Value* password = nullptr;
    for (const Value& field : contents["fields"].GetArray()) {
        const std::string_view designation = field["designation"].GetString();
        if (designation == "username" && username == nullptr) {
            username = &field["value"];
        } else if (designation == "password" && password == nullptr) {
            password = &field["value"];
        }
    }
    if (username != nullptr && password != nullptr) {
        records.logins.push_back(
            {{textOf(*username), textOf(*password), textOf(contents["URLs"][0], "url")},
             textOf(form, "title")});
    }
}

NamedRecords onePassword(const std::filesystem::path& file) {
    std::string text = contentsOf(file);
    rapidjson::MemoryPoolAllocator<> memory;
    rapidjson::Document document(&memory);
    NamedRecords records;
    forEachRecord(text, [&](std::size_t start, std::size_t size) {
        text[start + size] = '\0';
        parse(document, text.data() + start);
        const std::string_view type = document["typeName"].GetString();
        if (type == "webforms.WebForm") {
            addWebForm(document, records);
        } else if (type == "securenotes.SecureNote") {
            records.notes.push_back(
                {textOf(document, "title"), textOf(document["secureContents"], "notesPlain")});
        }
        document.SetNull();
        memory.Clear();
    });
    return records;
}

FirefoxRecords firefox(const std::filesystem::path& file) {
    std::string text = contentsOf(file);
    rapidjson::Document document;
    parse(document, text.data());
    FirefoxRecords records;
    for (const Value& login : document["logins"].GetArray()) {
        records.logins.push_back({textOf(login, "encryptedUsername"),
                                  textOf(login, "encryptedPassword"), textOf(login, "hostname")});
    }
    return records;
}

} // namespace

void addRapidJSON(const Store& store, std::vector<Contestant>& peers) {
    if (store.format != StoreFormat::json) {
        return;
    }
    const auto add = [&](auto read) {
        peers.push_back(contestant("rapidjson", [=] { return read(store.file); }));
    };
    switch (store.source) {
    case ImportSource::tirel:
        add(tirel);
        break;
    case ImportSource::onePassword:
        add(onePassword);
        break;
    default:
        add(firefox);
        break;
    }
}

} // namespace Rellinor::Benchmarks
