#include "Private/Importers/Tirel/TirelRecord.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Importers/Tirel/TirelExportFile.hpp"
#include "Private/Importers/Tirel/TirelExportMember.hpp"
#include "Private/Proxies/JSONDocument.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/RecordKeys.hpp"
#include "Tests/Support/TirelExport.hpp"

namespace Rellinor::Tests {

namespace {

using enum TirelRecordKey;
using enum TirelRecordType;
using Keys = std::set<TirelRecordKey>;

/// Entries of an export as raw records.
class TirelRecordTest : public testing::Test {
protected:
    TirelRecord record(TirelRecordType type, const Members& entry) {
        _text = entry.text();
        _document = JSONDocument::parsed(_text, namesOfTirelExportMembers, _memory).value();
        return {type, _document.value().root().object().value()};
    }

    /// Those of all keys that a record has.
    Keys keys(TirelRecordType type, const Members& entry) {
        const TirelRecord raw = record(type, entry);
        Keys present;
        for (const TirelRecordKey key : allTirelRecordKeys) {
            if (raw[key]) {
                present.insert(key);
            }
        }
        return present;
    }

private:
    std::string _text;
    ImportMemory _memory;
    std::optional<JSONDocument> _document;
};

std::optional<std::string_view> textOf(const TirelRecord& record, TirelRecordKey key) {
    return record[key].and_then(&JSONValue::text);
}

std::optional<std::int64_t> integerOf(const TirelRecord& record, TirelRecordKey key) {
    return record[key].and_then(&JSONValue::integer);
}

// Logins

TEST_F(TirelRecordTest, aWholeLoginHasSevenKeys) {
    EXPECT_EQ(keys(webPassword, aLogin()),
              (Keys{username, password, url, note, color, custName, pwdChange}));
}

TEST_F(TirelRecordTest, aLoginWithoutANameOrATimeHasSixKeys) {
    EXPECT_EQ(keys(webPassword, aLogin().without("custName")),
              (Keys{username, password, url, note, color, pwdChange}));
    EXPECT_EQ(keys(webPassword, aLogin().without("pwdChange")),
              (Keys{username, password, url, note, color, custName}));
}

TEST_F(TirelRecordTest, aLoginWithoutANameAndATimeHasFiveKeys) {
    EXPECT_EQ(keys(webPassword, aLogin().without("custName").without("pwdChange")),
              (Keys{username, password, url, note, color}));
}

TEST_F(TirelRecordTest, aLoginHasNoKeyForNull) {
    EXPECT_EQ(keys(webPassword, aLogin().with("custName", "null").with("pwdChange", "null")),
              (Keys{username, password, url, note, color}));
}

TEST_F(TirelRecordTest, aLoginHoldsItsFields) {
    const TirelRecord login = record(webPassword, aLogin());
    EXPECT_EQ(textOf(login, username), "ann"); // from "loginName"
    EXPECT_EQ(textOf(login, password), "one"); // from "pwd"
    EXPECT_EQ(textOf(login, url), "https://a.example");
    EXPECT_EQ(textOf(login, note), "a note");
    EXPECT_EQ(integerOf(login, color), 3);
    EXPECT_EQ(textOf(login, custName), "Mail");
    EXPECT_EQ(integerOf(login, pwdChange), 1700000000);
}

TEST_F(TirelRecordTest, aLoginHasNoKeyOfAnotherKind) {
    // The members of an export are not keys: "username" is told by "loginName" alone.
    EXPECT_EQ(keys(webPassword, Members{{"username", R"("a")"},
                                        {"password", R"("b")"},
                                        {"label", R"("c")"},
                                        {"text", R"("d")"},
                                        {"cardNumber", R"("e")"},
                                        {"pin", R"("f")"},
                                        {"expirationDay", "1"},
                                        {"day", "2"},
                                        {"expirationDate", R"({"day":3})"}}),
              Keys{});
}

// Notes

TEST_F(TirelRecordTest, aNoteHasThreeKeys) {
    EXPECT_EQ(keys(secureNote, aNote()), (Keys{color, label, text}));
}

TEST_F(TirelRecordTest, aNoteHoldsItsFields) {
    const TirelRecord note = record(secureNote, aNote());
    EXPECT_EQ(integerOf(note, color), 5);
    EXPECT_EQ(textOf(note, label), "Wi-Fi");
    EXPECT_EQ(textOf(note, text), "text");
}

TEST_F(TirelRecordTest, aNoteHasNoKeyOfAnotherKind) {
    EXPECT_EQ(keys(secureNote, aLogin()), Keys{color});
    EXPECT_EQ(keys(secureNote, aCard()), Keys{});
}

// Cards

TEST_F(TirelRecordTest, aCardHasNineKeys) {
    EXPECT_EQ(keys(creditCard, aCard()), (Keys{cardNumber, custName, holderName, cvv, pin, note,
                                               expirationDay, expirationMonth, expirationYear}));
}

TEST_F(TirelRecordTest, aCardHoldsItsFieldsAndTheFlattenedDate) {
    const TirelRecord card = record(creditCard, aCard());
    EXPECT_EQ(textOf(card, cardNumber), "0001");
    EXPECT_EQ(textOf(card, custName), "Travel");
    EXPECT_EQ(textOf(card, holderName), "Ann");
    EXPECT_EQ(textOf(card, cvv), "002");
    EXPECT_EQ(textOf(card, pin), "0003");
    EXPECT_EQ(textOf(card, note), "a note");
    EXPECT_EQ(integerOf(card, expirationDay), 31);
    EXPECT_EQ(integerOf(card, expirationMonth), 12);
    EXPECT_EQ(integerOf(card, expirationYear), 2030);
}

TEST_F(TirelRecordTest, aCardHasNoDateWithoutADateObject) {
    const Keys withoutDate = {cardNumber, custName, holderName, cvv, pin, note};
    EXPECT_EQ(keys(creditCard, aCard().without("expirationDate")), withoutDate);
    for (const std::string_view value : {"null", "1", R"("text")", "[]", R"([{"day":1}])", "{}"}) {
        EXPECT_EQ(keys(creditCard, aCard().with("expirationDate", value)), withoutDate) << value;
    }
}

TEST_F(TirelRecordTest, aCardTakesTheDateFromItsOwnObjectOnly) {
    EXPECT_EQ(keys(creditCard, Members{{"day", "1"}, {"month", "2"}, {"year", "3"}}), Keys{});
    EXPECT_EQ(keys(creditCard, Members{{"expirationDate", R"({"month":2,"pin":"x","note":"x"})"}}),
              Keys{expirationMonth});
}

TEST_F(TirelRecordTest, aCardHasNoKeyOfAnotherKind) {
    EXPECT_EQ(keys(creditCard, aLogin()), (Keys{custName, note}));
    EXPECT_EQ(keys(creditCard, aNote()), Keys{});
}

// Values

TEST_F(TirelRecordTest, aKeyIsThereWhateverTheTypeOfItsValue) {
    for (const std::string_view value : {"1", "1.5", "true", R"("text")", "[]", "[{}]", "{}"}) {
        EXPECT_EQ(keys(webPassword, Members{{"pwd", value}}), Keys{password}) << value;
        EXPECT_EQ(keys(secureNote, Members{{"text", value}}), Keys{text}) << value;
        EXPECT_EQ(keys(creditCard, Members{{"cardNumber", value}}), Keys{cardNumber}) << value;
    }
}

TEST_F(TirelRecordTest, takesTheFirstOfTwoMembersOfOneName) {
    const TirelRecord login = record(
        webPassword, Members{{"pwd", R"("first")"}, {"pwd", "2"}, {"color", "1"}, {"color", "2"}});
    EXPECT_EQ(textOf(login, password), "first");
    EXPECT_EQ(integerOf(login, color), 1);
}

TEST_F(TirelRecordTest, anEmptyEntryHasNoKeys) {
    for (const TirelRecordType type : {webPassword, secureNote, creditCard}) {
        EXPECT_EQ(keys(type, Members{}), Keys{});
    }
}

// Dictionaries

/// A raw record as a dictionary.
TirelDictionary dictionaryOf(const TirelRecord& record) {
    TirelDictionary dictionary;
    for (const TirelRecordKey key : allTirelRecordKeys) {
        if (const auto text = textOf(record, key)) {
            dictionary.values.emplace(rawValue(key), *text);
        } else if (const auto integer = integerOf(record, key)) {
            dictionary.values.emplace(rawValue(key), *integer);
        }
    }
    return dictionary;
}

TEST(TirelDictionaryTest, holdsALoginByTheNamesOfItsKeys) {
    using Values = decltype(TirelDictionary::values);
    const TirelExportData::Password login(4, "Mail", "ann", "a note", "one", 5,
                                          "https://a.example");
    EXPECT_EQ(login.tirelRecord().values, (Values{{"username", "ann"},
                                                  {"password", "one"},
                                                  {"url", "https://a.example"},
                                                  {"note", "a note"},
                                                  {"color", 4},
                                                  {"custName", "Mail"},
                                                  {"pwdChange", 5}}));
}

TEST(TirelDictionaryTest, holdsWhatTheRecordOfAnImportHolds) {
    for (std::uint64_t seed = 0; seed < affordable(3000U); ++seed) {
        const TirelExportData data = randomTirelExportData(seed);
        const std::string text = data.encode();
        ImportMemory memory;
        const auto file = TirelExportFile::decoded(
            JSONDocument::parsed(text, TirelExportFile::keys, memory).value());
        auto record = file.value().begin();
        for (const TirelExportData::Password& login : data.logins) {
            ASSERT_EQ(login.tirelRecord().values, dictionaryOf(*record).values) << seed;
            ++record;
        }
        for (std::size_t notes = data.notes.size(); notes > 0; --notes) {
            ++record; // which alone has no dictionary
        }
        for (const TirelExportData::Card& card : data.cards) {
            ASSERT_EQ(card.tirelRecord().values, dictionaryOf(*record).values) << seed;
            ++record;
        }
        ASSERT_EQ(record, TirelExportFile::end());
    }
}

// The enumerations

TEST(TirelRecordKeyTest, namesItsCasesInOrder) {
    EXPECT_EQ(
        namesInOrder({expirationDay, expirationMonth, expirationYear, cardNumber, color, custName,
                      cvv, holderName, label, note, url, username, password, pin, pwdChange, text}),
        "expirationDay|expirationMonth|expirationYear|cardNumber|color|custName|cvv|"
        "holderName|label|note|url|username|password|pin|pwdChange|text|");
}

TEST(TirelRecordKeyTest, isMadeOfItsName) {
    for (const TirelRecordKey key : allTirelRecordKeys) {
        EXPECT_EQ(tirelRecordKeyOf(rawValue(key)), key);
    }
}

TEST(TirelRecordKeyTest, isNotMadeOfAnotherName) {
    for (const std::string_view name : {"", "Text", "text ", "tex", "loginName", "pwd", "day"}) {
        EXPECT_EQ(tirelRecordKeyOf(name), std::nullopt) << name;
    }
}

TEST(TirelRecordTypeTest, hasItsCasesInOrder) {
    EXPECT_EQ(static_cast<int>(webPassword), 0);
    EXPECT_EQ(static_cast<int>(secureNote), 1);
    EXPECT_EQ(static_cast<int>(creditCard), 2);
}

TEST(TirelExportMemberTest, namesItsCasesInOrder) {
    using enum TirelExportMember;
    EXPECT_EQ(namesInOrder({logins,         notes, cards, color, custName,   loginName,  note, pwd,
                            pwdChange,      url,   label, text,  cardNumber, holderName, cvv,  pin,
                            expirationDate, day,   month, year}),
              "logins|notes|cards|color|custName|loginName|note|pwd|pwdChange|url|label|text|"
              "cardNumber|holderName|cvv|pin|expirationDate|day|month|year|");
}

} // namespace

} // namespace Rellinor::Tests
