// What `TirelExportData` reads and writes.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <Rellinor/Models/TirelExportData.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/TirelExport.hpp"

namespace Rellinor::Tests {

namespace {

// Encoding

TEST(TirelExportDataCodingTest, encodesEveryMemberInItsOrder) {
    TirelExportData data;
    data.logins.emplace_back(4, "Mail", "ann", "a note", "one", 5, "https://a.example");
    data.notes.emplace_back(6, "b", "text");
    data.notes.emplace_back(-7, "a", "");
    data.cards.emplace_back("0001", "Travel", "Ann", "002", "0003", "",
                            TirelExportData::Card::ExpirationDate(31, 12, 2030));
    EXPECT_EQ(data.encode(),
              R"({"logins":[{"color":4,"custName":"Mail","loginName":"ann","note":"a note",)"
              R"("pwd":"one","pwdChange":5,"url":"https://a.example"}],)"
              R"("notes":[{"color":6,"label":"b","text":"text"},)"
              R"({"color":-7,"label":"a","text":""}],)"
              R"("cards":[{"cardNumber":"0001","custName":"Travel","holderName":"Ann",)"
              R"("cvv":"002","pin":"0003","note":"",)"
              R"("expirationDate":{"day":31,"month":12,"year":2030}}]})");
}

TEST(TirelExportDataCodingTest, encodesEmptyLists) {
    EXPECT_EQ(TirelExportData().encode(), R"({"logins":[],"notes":[],"cards":[]})");
}

TEST(TirelExportDataCodingTest, leavesOutWhatIsAbsentAndNotWhatIsEmpty) {
    TirelExportData data;
    data.logins.emplace_back(0, std::nullopt, "", "", "", std::nullopt, "");
    data.logins.emplace_back(0, "", "", "", "", 0, "");
    EXPECT_EQ(data.encode(),
              R"({"logins":[{"color":0,"loginName":"","note":"","pwd":"","url":""},)"
              R"({"color":0,"custName":"","loginName":"","note":"","pwd":"","pwdChange":0,)"
              R"("url":""}],"notes":[],"cards":[]})");
}

TEST(TirelExportDataCodingTest, encodesWhatIsNotUTF8Repaired) {
    TirelExportData data;
    data.notes.emplace_back(0, "\xFF", "a\"\u202E");
    EXPECT_EQ(data.encode(), "{\"logins\":[],\"notes\":[{\"color\":0,\"label\":\"\uFFFD\","
                             "\"text\":\"a\\\"\\u202e\"}],\"cards\":[]}");
}

// Decoding

/// What decoding a text gives, as records; an import of the same text must give it too.
Outcome decoded(std::string_view text) {
    const std::vector<char> bytes(text.begin(), text.end()); // of exactly its size
    const auto data = TirelExportData::decode({bytes.data(), bytes.size()});
    Outcome outcome = data ? outcomeOf(*data) : failedWithText();
    const TemporaryFolder folder;
    EXPECT_EQ(outcome, outcomeOf(ImportSource::tirel, folder.file("export.json", text))) << text;
    return outcome;
}

const Password ann = {"ann", "one", "https://a.example", "Mail", 3, "a note", 1700000000};
const Note wifi = {5, "Wi-Fi", "text"};
const Card travel = {"0001", "Travel", "Ann", "002", "0003", "a note", 31, 12, 2030};

TEST(TirelExportDataCodingTest, decodesEveryMember) {
    const Members whole = {
        {"cards", listOf({aCard()})}, {"notes", listOf({aNote()})}, {"logins", listOf({aLogin()})}};
    EXPECT_EQ(decoded(whole.text()),
              (Outcome{.passwords = {ann}, .notes = {wifi}, .cards = {travel}}));
}

TEST(TirelExportDataCodingTest, decodesTheTypicalExport) {
    const Outcome typical = decoded(contentsOf(RELLINOR_FIXTURES "/Tirel/typical.json"));
    EXPECT_EQ(typical.passwords.size(), 3);
    EXPECT_EQ(typical.notes.size(), 2);
    EXPECT_EQ(typical.cards.size(), 2);
}

TEST(TirelExportDataCodingTest, decodesAWholeExportOrNothing) {
    for (const std::string& text : acceptedTirelExports()) {
        EXPECT_EQ(decoded(text).error, std::nullopt) << text;
    }
    for (const std::string& text : rejectedTirelExports()) {
        EXPECT_EQ(decoded(text), failedWithText()) << text;
    }
}

TEST(TirelExportDataCodingTest, decodesNullAsAbsent) {
    const Outcome outcome =
        decoded(exportOfLogin(aLogin().with("custName", "null").without("pwdChange")));
    EXPECT_EQ(outcome.passwords.at(0).service, std::nullopt);
    EXPECT_EQ(outcome.passwords.at(0).pwdChange, std::nullopt);
}

TEST(TirelExportDataCodingTest, decodesIntegersByTheirDigits) {
    for (const auto integers : {acceptedIntegers(), acceptedLongIntegers()}) {
        for (const auto& [text, value] : integers) {
            const Outcome login =
                decoded(exportOfLogin(aLogin().with("color", text).with("pwdChange", text)));
            ASSERT_EQ(login.passwords.size(), 1) << text;
            EXPECT_EQ(login.passwords[0].color, value) << text;
            EXPECT_EQ(login.passwords[0].pwdChange, value) << text;
            const Outcome card =
                decoded(exportOfDate(Members{{"day", text}, {"month", text}, {"year", text}}));
            ASSERT_EQ(card.cards.size(), 1) << text;
            EXPECT_EQ(card.cards[0].expirationDay, value) << text;
            EXPECT_EQ(card.cards[0].expirationMonth, value) << text;
            EXPECT_EQ(card.cards[0].expirationYear, value) << text;
        }
    }
    // A floating-point number would round these.
    for (const std::string_view value :
         {"1.00000000000000000001", "9223372036854775807.5", "0.99999999999999999999", "1e-400"}) {
        EXPECT_EQ(decoded(exportOfNote(aNote().with("color", value))), failedWithText()) << value;
    }
}

TEST(TirelExportDataCodingTest, decodesTheFirstOfTwoMembersOfOneName) {
    const std::string note =
        R"({"color":1,"label":"first","label":"second","text":"x","text":5,"color":2})";
    EXPECT_EQ(decoded(R"({"logins":[],"notes":[)" + note + R"(],"cards":[],"notes":[],"cards":5})"),
              (Outcome{.notes = {{1, "first", "x"}}}));
    EXPECT_EQ(decoded(R"({"logins":5,"logins":[],"notes":[],"cards":[]})"), failedWithText());
}

TEST(TirelExportDataCodingTest, decodesEscapes) {
    EXPECT_EQ(decoded(R"({"log\u0069ns":[],"cards":[],)"
                      R"("notes":[{"color":5,"label":"\ud83d\udd11","text":"\"\u0000"}]})"),
              (Outcome{.notes = {{5, "\U0001F511", std::string("\"\0", 2)}}}));
}

TEST(TirelExportDataCodingTest, decodesNothingThatIsNotJSONInUTF8) {
    const std::string whole = exportOfNote(aNote());
    ASSERT_EQ(decoded(whole), (Outcome{.notes = {wifi}}));
    EXPECT_EQ(decoded("\uFEFF" + whole), (Outcome{.notes = {wifi}}));
    EXPECT_EQ(decoded("\uFEFF\uFEFF" + whole), failedWithText());
    EXPECT_EQ(decoded(""), failedWithText());
    EXPECT_EQ(decoded("\uFEFF"), failedWithText());
    EXPECT_EQ(decoded(whole + "x"), failedWithText());
    EXPECT_EQ(decoded(whole.substr(0, whole.size() - 1)), failedWithText());
    EXPECT_EQ(decoded(exportOfNote(aNote().with("other", "\"\xFF\""))), failedWithText());
    EXPECT_EQ(decoded(exportOfNote(aNote().with("other", R"("\ud800")"))), failedWithText());
}

TEST(TirelExportDataCodingTest, decodesWhatIsNested512Deep) {
    EXPECT_EQ(decoded(emptyExport().with("other", nestedArrays(511)).text()), Outcome());
    EXPECT_EQ(decoded(emptyExport().with("other", nestedArrays(512)).text()), failedWithText());
}

TEST(TirelExportDataCodingTest, decodesWhatItEncodes) {
    for (std::uint64_t seed = 0; seed < affordable(3000U); ++seed) {
        const TirelExportData data = randomTirelExportData(seed);
        ASSERT_EQ(decoded(data.encode()), outcomeOf(data)) << seed;
    }
}

} // namespace

} // namespace Rellinor::Tests
