#include "Tests/Support/TirelExport.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>

#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/RandomText.hpp"

namespace Rellinor::Tests {

namespace {

const Members& aDate() {
    static const Members date = {{"day", "31"}, {"month", "12"}, {"year", "2030"}};
    return date;
}

/// Adds each export in which one member of an entry is missing, null or of another type.
void addBroken(std::vector<std::string>& exports, std::string (*exportOf)(const Members&),
               const Members& entry, std::string_view name,
               std::span<const std::string_view> otherValues) {
    exports.push_back(exportOf(entry.without(name)));
    exports.push_back(exportOf(entry.with(name, "null")));
    for (const std::string_view value : otherValues) {
        exports.push_back(exportOf(entry.with(name, value)));
    }
}

/// Draws data from a seed.
class RandomData {
public:
    explicit RandomData(std::uint64_t seed) : _random(seed) {}

    TirelExportData data() {
        TirelExportData data;
        for (std::size_t count = _random.below(5); count > 0; --count) {
            data.logins.emplace_back(integer(), perhaps(text()), text(), text(), text(),
                                     perhaps(integer()), text());
        }
        for (std::size_t count = _random.below(5); count > 0; --count) {
            data.notes.emplace_back(integer(), text(), text());
        }
        for (std::size_t count = _random.below(5); count > 0; --count) {
            data.cards.emplace_back(
                text(), text(), text(), text(), text(), text(),
                TirelExportData::Card::ExpirationDate(integer(), integer(), integer()));
        }
        return data;
    }

private:
    template <typename Value>
    std::optional<Value> perhaps(Value value) {
        return _random.below(3) == 0 ? std::nullopt : std::optional(std::move(value));
    }

    std::string text() {
        using namespace std::string_view_literals;
        static constexpr std::array pieces = {
            "a"sv,      "Z"sv,      " "sv,       "\t"sv,     "\n"sv,         "\r\n"sv,
            "\0"sv,     "\x01"sv,   "\x1F"sv,    "\x7F"sv,   "\""sv,         "\\"sv,
            "/"sv,      "{"sv,      "}"sv,       "["sv,      "]"sv,          ","sv,
            ":"sv,      "null"sv,   "\\u0041"sv, "\u00E9"sv, "e\u0301"sv,    "\u6F22"sv,
            "\u2028"sv, "\u202E"sv, "\uFEFF"sv,  "\uFFFF"sv, "\U0001F511"sv, "\U0010FFFF"sv,
            "\u0080"sv,
        };
        std::string text = _random.of(pieces, 12);
        if (_random.below(200) == 0) { // longer than any buffer of a parser
            text.insert(0, 5000 + _random.below(5000), 'x');
        }
        return text;
    }

    std::int64_t integer() {
        using Limits = std::numeric_limits<std::int64_t>;
        static constexpr std::array<std::int64_t, 10> integers = {
            0,
            1,
            -1,
            1700000000,
            9007199254740993, // 2 to the 53rd, and 1
            -9007199254740993,
            Limits::max(),
            Limits::max() - 1,
            Limits::min(),
            Limits::min() + 1,
        };
        return integers.at(_random.below(integers.size()));
    }

    RandomText _random;
};

std::optional<std::string> owned(std::optional<std::string_view> text) {
    return text.transform([](std::string_view view) { return std::string(view); });
}

} // namespace

Members Members::with(std::string_view name, std::string_view value) const {
    Members changed = *this;
    const auto member = std::ranges::find(
        changed._members, name, [](const auto& pair) { return std::string_view(pair.first); });
    if (member != changed._members.end()) {
        member->second = value;
    } else {
        changed._members.emplace_back(name, value);
    }
    return changed;
}

Members Members::without(std::string_view name) const {
    Members changed = *this;
    std::erase_if(changed._members, [&](const auto& member) { return member.first == name; });
    return changed;
}

std::string Members::text() const {
    std::string text = "{";
    for (const auto& [name, value] : _members) {
        text += text == "{" ? "\"" : ",\"";
        text += name + "\":" + value;
    }
    return text + "}";
}

std::string listOf(const std::vector<Members>& objects) {
    std::string text = "[";
    for (const Members& object : objects) {
        text += text.size() == 1 ? "" : ",";
        text += object.text();
    }
    return text + "]";
}

const Members& emptyExport() {
    static const Members members = {{"logins", "[]"}, {"notes", "[]"}, {"cards", "[]"}};
    return members;
}

const Members& aLogin() {
    static const Members login = {
        {"color", "3"},
        {"custName", R"("Mail")"},
        {"loginName", R"("ann")"},
        {"note", R"("a note")"},
        {"pwd", R"("one")"},
        {"pwdChange", "1700000000"},
        {"url", R"("https://a.example")"},
    };
    return login;
}

const Members& aNote() {
    static const Members note = {{"color", "5"}, {"label", R"("Wi-Fi")"}, {"text", R"("text")"}};
    return note;
}

const Members& aCard() {
    static const Members card = {
        {"cardNumber", R"("0001")"},
        {"custName", R"("Travel")"},
        {"holderName", R"("Ann")"},
        {"cvv", R"("002")"},
        {"pin", R"("0003")"},
        {"note", R"("a note")"},
        {"expirationDate", aDate().text()},
    };
    return card;
}

std::string exportOfLogin(const Members& login) {
    return emptyExport().with("logins", listOf({login})).text();
}

std::string exportOfNote(const Members& note) {
    return emptyExport().with("notes", listOf({note})).text();
}

std::string exportOfCard(const Members& card) {
    return emptyExport().with("cards", listOf({card})).text();
}

std::string exportOfDate(const Members& date) {
    return exportOfCard(aCard().with("expirationDate", date.text()));
}

std::vector<std::string> rejectedTirelExports() {
    std::vector<std::string> exports;
    for (const std::string_view list : {"logins", "notes", "cards"}) {
        exports.push_back(emptyExport().without(list).text());
        for (const std::string_view value : {"null", "1", "true", R"("text")", "{}", R"({"a":[]})",
                                             "[1]", "[null]", R"(["text"])", "[[]]", "[{}]"}) {
            exports.push_back(emptyExport().with(list, value).text());
        }
    }
    const Members whole = {
        {"logins", listOf({aLogin()})}, {"notes", listOf({aNote()})}, {"cards", listOf({aCard()})}};
    for (const auto& [list, entry] : {std::pair("logins", aLogin()), std::pair("notes", aNote()),
                                      std::pair("cards", aCard())}) {
        for (const std::string_view other : {"5", "null", "[]", R"("text")", "{}"}) {
            exports.push_back(whole.with(list, arrayOf({entry.text(), other})).text());
            exports.push_back(whole.with(list, arrayOf({other, entry.text()})).text());
        }
    }

    for (const std::string_view text : {"loginName", "note", "pwd", "url"}) {
        addBroken(exports, exportOfLogin, aLogin(), text, rejectedStrings());
    }
    addBroken(exports, exportOfLogin, aLogin(), "color", rejectedIntegers());
    for (const std::string_view value : rejectedStrings()) {
        exports.push_back(exportOfLogin(aLogin().with("custName", value)));
    }
    for (const std::string_view value : rejectedIntegers()) {
        exports.push_back(exportOfLogin(aLogin().with("pwdChange", value)));
    }

    addBroken(exports, exportOfNote, aNote(), "color", rejectedIntegers());
    addBroken(exports, exportOfNote, aNote(), "label", rejectedStrings());
    addBroken(exports, exportOfNote, aNote(), "text", rejectedStrings());

    for (const std::string_view text :
         {"cardNumber", "custName", "holderName", "cvv", "pin", "note"}) {
        addBroken(exports, exportOfCard, aCard(), text, rejectedStrings());
    }
    static constexpr std::array<std::string_view, 6> noDates = {
        "1", R"("31.12.2030")", "true", "[]", "[{}]", "{}",
    };
    addBroken(exports, exportOfCard, aCard(), "expirationDate", noDates);
    for (const std::string_view part : {"day", "month", "year"}) {
        addBroken(exports, exportOfDate, aDate(), part, rejectedIntegers());
    }
    return exports;
}

std::vector<std::string> acceptedTirelExports() {
    std::vector<std::string> exports = {
        emptyExport().text(),
        exportOfLogin(aLogin()),
        exportOfLogin(aLogin().without("custName")),
        exportOfLogin(aLogin().with("custName", "null")),
        exportOfLogin(aLogin().without("pwdChange")),
        exportOfLogin(aLogin().with("pwdChange", "null")),
        exportOfNote(aNote()),
        exportOfCard(aCard()),
    };
    for (const std::string_view unknown : {"1", "1.5", "null", "true", R"("text")", "[1,{}]",
                                           R"({"color":[]})", "100000000000000000000"}) {
        exports.push_back(emptyExport().with("unknown", unknown).text());
        exports.push_back(exportOfLogin(aLogin().with("label", unknown)));
        exports.push_back(exportOfNote(aNote().with("url", unknown)));
        exports.push_back(exportOfCard(aCard().with("color", unknown)));
        exports.push_back(exportOfDate(aDate().with("hour", unknown)));
    }
    return exports;
}

Outcome outcomeOf(const TirelExportData& data) {
    Outcome outcome;
    for (const TirelExportData::Password& login : data.logins) {
        outcome.passwords.push_back({
            .username = std::string(login.loginName()),
            .password = std::string(login.pwd()),
            .url = std::string(login.url()),
            .service = owned(login.custName()),
            .color = login.color(),
            .note = std::string(login.note()),
            .pwdChange = login.pwdChange(),
        });
    }
    for (const TirelExportData::Note& note : data.notes) {
        outcome.notes.push_back({
            .color = note.color(),
            .title = std::string(note.label()),
            .content = std::string(note.text()),
        });
    }
    for (const TirelExportData::Card& card : data.cards) {
        outcome.cards.push_back({
            .cardNumber = std::string(card.cardNumber()),
            .custName = std::string(card.custName()),
            .holderName = std::string(card.holderName()),
            .cvv = std::string(card.cvv()),
            .pin = std::string(card.pin()),
            .note = std::string(card.note()),
            .expirationDay = card.expirationDate().day(),
            .expirationMonth = card.expirationDate().month(),
            .expirationYear = card.expirationDate().year(),
        });
    }
    return outcome;
}

TirelExportData randomTirelExportData(std::uint64_t seed) {
    return RandomData(seed).data();
}

} // namespace Rellinor::Tests
