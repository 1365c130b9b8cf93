// simdjson by its two ways: a document that is built first, and values read on demand.

#include <simdjson.h>

#include "Benchmarks/Peers/Peers.hpp"
#include "Benchmarks/Peers/PlainRecords.hpp"
#include "Benchmarks/Peers/Text.hpp"

namespace Rellinor::Benchmarks {

namespace {

namespace dom = simdjson::dom;
namespace ondemand = simdjson::ondemand;

std::string textOf(auto&& value) {
    return std::string(std::string_view(value));
}

/// For both ways, as their objects are used alike.
PlainTirelLogin tirelLogin(auto login) {
    PlainTirelLogin plain;
    plain.color = std::int64_t(login["color"]);
    if (std::string_view service; login["custName"].get(service) == simdjson::SUCCESS) {
        plain.service = service;
    }
    plain.username = textOf(login["loginName"]);
    plain.note = textOf(login["note"]);
    plain.password = textOf(login["pwd"]);
    if (std::int64_t change = 0; login["pwdChange"].get(change) == simdjson::SUCCESS) {
        plain.pwdChange = change;
    }
    plain.url = textOf(login["url"]);
    return plain;
}

PlainTirelNote tirelNote(auto note) {
    PlainTirelNote plain;
    plain.color = std::int64_t(note["color"]);
    plain.title = textOf(note["label"]);
    plain.content = textOf(note["text"]);
    return plain;
}

PlainCard card(auto card) {
    PlainCard plain;
    plain.cardNumber = textOf(card["cardNumber"]);
    plain.custName = textOf(card["custName"]);
    plain.holderName = textOf(card["holderName"]);
    plain.cvv = textOf(card["cvv"]);
    plain.pin = textOf(card["pin"]);
    plain.note = textOf(card["note"]);
    auto expiration = card["expirationDate"];
    plain.expirationDay = std::int64_t(expiration["day"]);
    plain.expirationMonth = std::int64_t(expiration["month"]);
    plain.expirationYear = std::int64_t(expiration["year"]);
    return plain;
}

PlainLogin firefoxLogin(auto login) {
    PlainLogin plain;
    plain.url = textOf(login["hostname"]);
    plain.username = textOf(login["encryptedUsername"]);
    plain.password = textOf(login["encryptedPassword"]);
    return plain;
}

struct DOM {
    using Object = dom::object;
    using Array = dom::array;
};

struct OnDemand {
    using Object = ondemand::object;
    using Array = ondemand::array;
};

template <typename Way>
TirelRecords tirel(typename Way::Object document) {
    TirelRecords records;
    for (auto login : typename Way::Array(document["logins"])) {
        records.logins.push_back(tirelLogin(typename Way::Object(login)));
    }
    for (auto note : typename Way::Array(document["notes"])) {
        records.notes.push_back(tirelNote(typename Way::Object(note)));
    }
    for (auto each : typename Way::Array(document["cards"])) {
        records.cards.push_back(card(typename Way::Object(each)));
    }
    return records;
}

template <typename Way>
FirefoxRecords firefox(typename Way::Object document) {
    FirefoxRecords records;
    for (auto login : typename Way::Array(document["logins"])) {
        records.logins.push_back(firefoxLogin(typename Way::Object(login)));
    }
    return records;
}

/// What of a record's contents may be wanted, as its type comes last.
struct Contents {
    std::string_view username;
    std::string_view password;
    std::string_view url;
    std::string_view note;
    bool hasUsername = false;
    bool hasPassword = false;
};

void readField(auto field, Contents& contents) {
    const auto value = std::string_view(field["value"]);
    const auto designation = std::string_view(field["designation"]);
    if (designation == "username" && !contents.hasUsername) {
        contents.username = value;
        contents.hasUsername = true;
    } else if (designation == "password" && !contents.hasPassword) {
        contents.password = value;
        contents.hasPassword = true;
    }
}

template <typename Way>
Contents contentsOf(typename Way::Object object) {
    Contents contents;
    typename Way::Array list;
    if (object["fields"].get(list) == simdjson::SUCCESS) {
        for (auto field : list) {
            readField(typename Way::Object(field), contents);
        }
    }
    if (object["URLs"].get(list) == simdjson::SUCCESS) {
        contents.url = std::string_view(typename Way::Object(list.at(0))["url"]);
    }
    if (object["notesPlain"].get(contents.note) != simdjson::SUCCESS) {
        contents.note = {};
    }
    return contents;
}

template <typename Way>
void addRecord(typename Way::Object record, NamedRecords& records) {
    const auto title = std::string_view(record["title"]);
    const Contents contents = contentsOf<Way>(typename Way::Object(record["secureContents"]));
    const auto type = std::string_view(record["typeName"]);
    if (type == "webforms.WebForm" && contents.hasUsername && contents.hasPassword) {
        records.logins.push_back({{std::string(contents.username), std::string(contents.password),
                                   std::string(contents.url)},
                                  std::string(title)});
    } else if (type == "securenotes.SecureNote") {
        records.notes.push_back({std::string(title), std::string(contents.note)});
    }
}

/// Calls `read` with each line that is a record; behind it there is as much as simdjson may read.
void forEachPaddedRecord(const std::filesystem::path& file, auto&& read) {
    std::string text = Benchmarks::contentsOf(file);
    const std::size_t size = text.size();
    text.resize(size + simdjson::SIMDJSON_PADDING);
    forEachRecord(text, [&](std::size_t start, std::size_t length) {
        read(simdjson::padded_string_view(text.data() + start, length, text.size() - start));
    });
}

NamedRecords onePasswordByDOM(const std::filesystem::path& file) {
    dom::parser parser;
    NamedRecords records;
    forEachPaddedRecord(file, [&](simdjson::padded_string_view line) {
        const dom::element record = parser.parse(line.data(), line.size(), false);
        addRecord<DOM>(record, records);
    });
    return records;
}

NamedRecords onePasswordOnDemand(const std::filesystem::path& file) {
    ondemand::parser parser;
    NamedRecords records;
    forEachPaddedRecord(file, [&](simdjson::padded_string_view line) {
        ondemand::document record = parser.iterate(line);
        addRecord<OnDemand>(record.get_object(), records);
    });
    return records;
}

template <auto read>
auto byDOM(const std::filesystem::path& file) {
    dom::parser parser;
    const dom::element document = parser.load(file.native());
    return read(document);
}

template <auto read>
auto onDemand(const std::filesystem::path& file) {
    ondemand::parser parser;
    const auto text = simdjson::padded_string::load(file.native());
    ondemand::document document = parser.iterate(text);
    return read(document.get_object());
}

} // namespace

void addSimdjson(const Store& store, std::vector<Contestant>& peers) {
    if (store.format != StoreFormat::json) {
        return;
    }
    const auto add = [&](auto readByDOM, auto readOnDemand) {
        peers.push_back(contestant("simdjson-dom", [=] { return readByDOM(store.file); }));
        peers.push_back(contestant("simdjson-ondemand", [=] { return readOnDemand(store.file); }));
    };
    switch (store.source) {
    case ImportSource::tirel:
        add(byDOM<tirel<DOM>>, onDemand<tirel<OnDemand>>);
        break;
    case ImportSource::onePassword:
        add(onePasswordByDOM, onePasswordOnDemand);
        break;
    default:
        add(byDOM<firefox<DOM>>, onDemand<firefox<OnDemand>>);
        break;
    }
}

} // namespace Rellinor::Benchmarks
