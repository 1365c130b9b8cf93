// nlohmann::json, as most programs use it.

#include <nlohmann/json.hpp>

#include "Benchmarks/Peers/Peers.hpp"
#include "Benchmarks/Peers/PlainRecords.hpp"
#include "Benchmarks/Peers/Text.hpp"

namespace Rellinor::Benchmarks {

namespace {

using Value = nlohmann::json;

const std::string& textOf(const Value& object, const char* name) {
    return object.at(name).get_ref<const std::string&>();
}

PlainTirelLogin tirelLogin(const Value& login) {
    PlainTirelLogin plain;
    plain.username = textOf(login, "loginName");
    plain.password = textOf(login, "pwd");
    plain.url = textOf(login, "url");
    plain.note = textOf(login, "note");
    plain.color = login.at("color").get<std::int64_t>();
    if (const auto name = login.find("custName"); name != login.end()) {
        plain.service = name->get_ref<const std::string&>();
    }
    if (const auto change = login.find("pwdChange"); change != login.end()) {
        plain.pwdChange = change->get<std::int64_t>();
    }
    return plain;
}

PlainCard card(const Value& card) {
    const Value& expiration = card.at("expirationDate");
    return {textOf(card, "cardNumber"),
            textOf(card, "custName"),
            textOf(card, "holderName"),
            textOf(card, "cvv"),
            textOf(card, "pin"),
            textOf(card, "note"),
            expiration.at("day").get<std::int64_t>(),
            expiration.at("month").get<std::int64_t>(),
            expiration.at("year").get<std::int64_t>()};
}

TirelRecords tirel(const std::filesystem::path& file) {
    const Value document = Value::parse(contentsOf(file));
    TirelRecords records;
    for (const Value& login : document.at("logins")) {
        records.logins.push_back(tirelLogin(login));
    }
    for (const Value& note : document.at("notes")) {
        records.notes.push_back(
            {{textOf(note, "label"), textOf(note, "text")}, note.at("color").get<std::int64_t>()});
    }
    for (const Value& each : document.at("cards")) {
        records.cards.push_back(card(each));
    }
    return records;
}

void addWebForm(const Value& form, NamedRecords& records) {
    const Value& contents = form.at("secureContents");
    const std::string* username = nullptr;
    const std::string* password = nullptr;
    for (const Value& field : contents.at("fields")) {
        const std::string& designation = textOf(field, "designation");
        if (designation == "username" && username == nullptr) {
            username = &textOf(field, "value");
        } else if (designation == "password" && password == nullptr) {
            password = &textOf(field, "value");
        }
    }
    if (username != nullptr && password != nullptr) {
        records.logins.push_back({{*username, *password, textOf(contents.at("URLs").at(0), "url")},
                                  textOf(form, "title")});
    }
}

NamedRecords onePassword(const std::filesystem::path& file) {
    const std::string text = contentsOf(file);
    NamedRecords records;
    forEachRecord(text, [&](std::size_t start, std::size_t size) {
        const Value record = Value::parse(std::string_view(text).substr(start, size));
        const std::string& type = textOf(record, "typeName");
        if (type == "webforms.WebForm") {
            addWebForm(record, records);
        } else if (type == "securenotes.SecureNote") {
            records.notes.push_back(
                {textOf(record, "title"), textOf(record.at("secureContents"), "notesPlain")});
        }
    });
    return records;
}

FirefoxRecords firefox(const std::filesystem::path& file) {
    const Value document = Value::parse(contentsOf(file));
    FirefoxRecords records;
    for (const Value& login : document.at("logins")) {
        records.logins.push_back({textOf(login, "encryptedUsername"),
                                  textOf(login, "encryptedPassword"), textOf(login, "hostname")});
    }
    return records;
}

} // namespace

void addNlohmannJSON(const Store& store, std::vector<Contestant>& peers) {
    if (store.format != StoreFormat::json) {
        return;
    }
    const auto add = [&](auto read) {
        peers.push_back(contestant("nlohmann-json", [=] { return read(store.file); }));
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
