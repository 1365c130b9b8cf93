#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <Rellinor/Models/TirelExportDataJSON.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/TirelExport.hpp"

namespace Rellinor::Tests {

namespace {

using Date = TirelExportData::Card::ExpirationDate;

boost::json::value json(const TirelExportData& data) {
    return boost::json::value_from(data);
}

std::string encoded(const TirelExportData& data) {
    return boost::json::serialize(json(data));
}

/// The data that a text spells; absent if it is none.
std::optional<TirelExportData> decoded(std::string_view text) {
    const auto data = boost::json::try_value_to<TirelExportData>(
        boost::json::parse(boost::json::string_view(text.data(), text.size())));
    return data ? std::optional(*data) : std::nullopt;
}

/// The fields, in the types of delivered records, with which an import of the data must agree.
Outcome fieldsOf(const TirelExportData& data) {
    const auto owned = [](std::string_view text) { return std::string(text); };
    Outcome fields;
    for (const auto& login : data.logins) {
        fields.passwords.push_back({
            .username = owned(login.loginName()),
            .password = owned(login.pwd()),
            .url = owned(login.url()),
            .service = login.custName().transform(owned),
            .color = login.color(),
            .note = owned(login.note()),
            .pwdChange = login.pwdChange(),
        });
    }
    for (const auto& note : data.notes) {
        fields.notes.push_back({
            .color = note.color(),
            .title = owned(note.label()),
            .content = owned(note.text()),
        });
    }
    for (const auto& card : data.cards) {
        fields.cards.push_back({
            .cardNumber = owned(card.cardNumber()),
            .custName = owned(card.custName()),
            .holderName = owned(card.holderName()),
            .cvv = owned(card.cvv()),
            .pin = owned(card.pin()),
            .note = owned(card.note()),
            .expirationDay = card.expirationDate().day(),
            .expirationMonth = card.expirationDate().month(),
            .expirationYear = card.expirationDate().year(),
        });
    }
    return fields;
}

// Encoding

TEST(TirelExportDataJSONTest, encodesEveryField) {
    TirelExportData data;
    data.logins.emplace_back(4, "Mail", "ann", "a note", "one", 5, "https://a.example");
    data.notes.emplace_back(6, "Wi-Fi", "text");
    data.cards.emplace_back("0001", "Travel", "Ann", "002", "0003", "", Date(31, 12, 2030));
    EXPECT_EQ(json(data), boost::json::parse(R"({
        "logins": [{"color": 4, "custName": "Mail", "loginName": "ann", "note": "a note",
                    "pwd": "one", "pwdChange": 5, "url": "https://a.example"}],
        "notes": [{"color": 6, "label": "Wi-Fi", "text": "text"}],
        "cards": [{"cardNumber": "0001", "custName": "Travel", "holderName": "Ann",
                   "cvv": "002", "pin": "0003", "note": "",
                   "expirationDate": {"day": 31, "month": 12, "year": 2030}}]
    })"));
}

TEST(TirelExportDataJSONTest, encodesEmptyLists) {
    EXPECT_EQ(json({}), boost::json::parse(R"({"logins":[],"notes":[],"cards":[]})"));
}

TEST(TirelExportDataJSONTest, leavesOutWhatIsAbsent) {
    TirelExportData data;
    data.logins.emplace_back(0, std::nullopt, "ann", "", "one", std::nullopt, "");
    EXPECT_EQ(json(data), boost::json::parse(R"({
        "logins": [{"color": 0, "loginName": "ann", "note": "", "pwd": "one", "url": ""}],
        "notes": [], "cards": []
    })"));
}

TEST(TirelExportDataJSONTest, encodesWhatIsPresentButEmpty) {
    TirelExportData data;
    data.logins.emplace_back(0, "", "", "", "", 0, "");
    EXPECT_EQ(json(data), boost::json::parse(R"({
        "logins": [{"color": 0, "custName": "", "loginName": "", "note": "", "pwd": "",
                    "pwdChange": 0, "url": ""}],
        "notes": [], "cards": []
    })"));
}

TEST(TirelExportDataJSONTest, encodesTheListsInTheirOrder) {
    TirelExportData data;
    data.notes.emplace_back(2, "b", "");
    data.notes.emplace_back(1, "a", "");
    EXPECT_EQ(json(data), boost::json::parse(R"({
        "logins": [], "cards": [],
        "notes": [{"color": 2, "label": "b", "text": ""}, {"color": 1, "label": "a", "text": ""}]
    })"));
}

// Decoding

TEST(TirelExportDataJSONTest, decodesEveryField) {
    EXPECT_EQ(fieldsOf(decoded(exportOfLogin(aLogin())).value()),
              (Outcome{.passwords = {
                           {"ann", "one", "https://a.example", "Mail", 3, "a note", 1700000000}}}));
    EXPECT_EQ(fieldsOf(decoded(exportOfNote(aNote())).value()),
              (Outcome{.notes = {{5, "Wi-Fi", "text"}}}));
    EXPECT_EQ(
        fieldsOf(decoded(exportOfCard(aCard())).value()),
        (Outcome{.cards = {{"0001", "Travel", "Ann", "002", "0003", "a note", 31, 12, 2030}}}));
}

TEST(TirelExportDataJSONTest, decodesThreeEmptyLists) {
    EXPECT_EQ(fieldsOf(decoded(R"({"logins":[],"notes":[],"cards":[]})").value()), Outcome{});
}

TEST(TirelExportDataJSONTest, decodesNullAsAbsent) {
    for (const Members& login : {aLogin().without("custName").without("pwdChange"),
                                 aLogin().with("custName", "null").with("pwdChange", "null")}) {
        const auto data = decoded(exportOfLogin(login));
        ASSERT_TRUE(data);
        EXPECT_EQ(data->logins.at(0).custName(), std::nullopt);
        EXPECT_EQ(data->logins.at(0).pwdChange(), std::nullopt);
        const boost::json::value again = json(*data);
        const auto& members = again.at("logins").as_array().at(0).as_object();
        EXPECT_EQ(members.size(), 5);
        EXPECT_FALSE(members.contains("custName"));
        EXPECT_FALSE(members.contains("pwdChange"));
    }
}

TEST(TirelExportDataJSONTest, decodesAWholeExportOrNothing) {
    for (const std::string& text : acceptedTirelExports()) {
        EXPECT_TRUE(decoded(text)) << text;
    }
    for (const std::string& text : rejectedTirelExports()) {
        EXPECT_FALSE(decoded(text)) << text;
    }
    EXPECT_FALSE(decoded("[]"));
    EXPECT_FALSE(decoded("null"));
}

TEST(TirelExportDataJSONTest, throwsForWhatItCannotDecode) {
    for (const std::string& text :
         {std::string("[]"), emptyExport().without("cards").text(),
          exportOfCard(aCard().without("custName")), exportOfCard(aCard().with("cvv", "2")),
          exportOfCard(aCard().with("pin", "3")), exportOfNote(aNote().with("color", "1.5"))}) {
        EXPECT_ANY_THROW((void)boost::json::value_to<TirelExportData>(boost::json::parse(text)))
            << text;
    }
}

TEST(TirelExportDataJSONTest, decodesIntegersHoweverTheyAreSpelt) {
    for (const auto& [text, value] : acceptedIntegers()) {
        const auto login =
            decoded(exportOfLogin(aLogin().with("color", text).with("pwdChange", text)));
        ASSERT_TRUE(login) << text;
        EXPECT_EQ(login->logins.at(0).color(), value) << text;
        EXPECT_EQ(login->logins.at(0).pwdChange(), value) << text;
        const auto card =
            decoded(exportOfDate(Members{{"day", text}, {"month", text}, {"year", text}}));
        ASSERT_TRUE(card) << text;
        EXPECT_EQ(card->cards.at(0).expirationDate().day(), value) << text;
        EXPECT_EQ(card->cards.at(0).expirationDate().month(), value) << text;
        EXPECT_EQ(card->cards.at(0).expirationDate().year(), value) << text;
    }
}

TEST(TirelExportDataJSONTest, decodesNoNumbersThatAreNoIntegers) {
    for (const std::string_view value : rejectedIntegers()) {
        EXPECT_FALSE(decoded(exportOfNote(aNote().with("color", value)))) << value;
        EXPECT_FALSE(decoded(exportOfLogin(aLogin().with("pwdChange", value)))) << value;
    }
}

TEST(TirelExportDataJSONTest, decodesTheTypicalExportAsTheImporterDoes) {
    const auto data = decoded(contentsOf(RELLINOR_FIXTURES "/Tirel/typical.json"));
    ASSERT_TRUE(data);
    EXPECT_EQ(outcomeOf(ImportSource::tirel, RELLINOR_FIXTURES "/Tirel/typical.json"),
              fieldsOf(*data));
    EXPECT_EQ(data->logins.size(), 3);
    EXPECT_EQ(data->notes.size(), 2);
    EXPECT_EQ(data->cards.size(), 2);
}

// Both ways

/// Random data from a seed.
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
            data.cards.emplace_back(text(), text(), text(), text(), text(), text(),
                                    Date(integer(), integer(), integer()));
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
            "a"sv,      "Z"sv,      " "sv,       "\t"sv,         "\n"sv,         "\r\n"sv,
            "\0"sv,     "\x01"sv,   "\x1F"sv,    "\x7F"sv,       "\""sv,         "\\"sv,
            "/"sv,      "{"sv,      "}"sv,       "["sv,          "]"sv,          ","sv,
            ":"sv,      "null"sv,   "\\u0041"sv, "\u00E9"sv,     "e\u0301"sv,    "\u6F22"sv,
            "\u2028"sv, "\uFEFF"sv, "\uFFFF"sv,  "\U0001F511"sv, "\U0010FFFF"sv, "\u0080"sv,
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

TEST(TirelExportDataJSONTest, givesBackTheSameFieldsInTheSameOrder) {
    for (std::uint64_t seed = 0; seed < affordable(3000U); ++seed) {
        const TirelExportData data = RandomData(seed).data();
        const auto again = decoded(encoded(data));
        ASSERT_TRUE(again) << seed;
        ASSERT_EQ(fieldsOf(*again), fieldsOf(data)) << seed;
        ASSERT_EQ(encoded(*again), encoded(data)) << seed;
    }
}

TEST(TirelExportDataJSONTest, writesWhatTheImporterReads) {
    const TemporaryFolder folder;
    for (std::uint64_t seed = 0; seed < affordable(3000U); ++seed) {
        const TirelExportData data = RandomData(seed).data();
        ASSERT_EQ(outcomeOf(ImportSource::tirel, folder.file("export.json", encoded(data))),
                  fieldsOf(data))
            << seed;
    }
}

} // namespace

} // namespace Rellinor::Tests
