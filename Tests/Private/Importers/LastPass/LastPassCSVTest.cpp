#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<std::string>;

constexpr std::string_view eightColumns = "url,username,password,totp,extra,name,grouping,fav\n";
constexpr std::string_view sevenColumns = "url,username,password,extra,name,grouping,fav\n";

/// A secure note of eight columns.
Reading noteWith(std::string_view text) {
    return readingOf(std::string(eightColumns) + "http://sn,,,,\"" + std::string(text) +
                     "\",Title,,0\n");
}

TEST(LastPassCSVTest, readsLoginsNotesAndCards) {
    const Reading reading = readingOf(
        std::string(eightColumns) + R"(https://mail.example.org/,ann,"p,1""q\",JBSWY3DPEHPK3PXP,,)"
                                    "Mail,Work\\Mail,0\n"
                                    "http://,bob,pw2,,,No site,,1\n"
                                    "http://sn,,,,\"line one\nline two\",My note,Notes,0\n"
                                    "http://sn,,,,\"NoteType:Credit Card\n"
                                    "Language:en-US\n"
                                    "Name on Card:Ann Example\n"
                                    "Type:Visa\n"
                                    "Number:4111 1111 1111 1111\n"
                                    "Security Code:123\n"
                                    "Start Date:January,2023\n"
                                    "Expiration Date:March,2027\n"
                                    "Notes:blue card\n"
                                    "keep: safe\",Bank card,,0\n"
                                    "http://group,,,,,,Work,0\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p,1\"q\\",
                       .url = "https://mail.example.org/",
                       .service = "Mail"},
                      {.username = "bob", .password = "pw2", .url = "", .service = "No site"}},
        .notes = {{.color = {}, .title = "My note", .content = "line one\nline two"}},
        .cards = {{.cardNumber = "4111 1111 1111 1111",
                   .custName = "Bank card",
                   .holderName = "Ann Example",
                   .cvv = "123",
                   .pin = "",
                   .note = "blue card\nkeep: safe",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"oneTimePassword totp=JBSWY3DPEHPK3PXP\nfolder grouping=Work\\Mail\n",
                      "favourite fav=true\n", "folder grouping=Notes\n",
                      "customText Language=en-US\ncustomText Type=Visa\n"
                      "customText Start Date=January,2023\n"}));
    EXPECT_EQ(reading.leftOut(LeftOutReason::placeholder), 1);
    EXPECT_EQ(reading.report.leftOut().front().places.first, std::vector<std::uint64_t>{16});
    EXPECT_TRUE(reading.report.findings().empty());
    EXPECT_EQ(reading.report.layout(), Layout::lastPassCSV);
    EXPECT_EQ(reading.report.placeUnit(), PlaceUnit::line);
}

TEST(LastPassCSVTest, readsOlderFilesAndOtherFields) {
    const Reading reading =
        readingOf("id,last_touch,attachpresent," + std::string(sevenColumns) +
                  "17,1700000000,1,https://a.example,ann,one,a note,A,(none),0\n");
    const Outcome expected = {.passwords = {{.username = "ann",
                                             .password = "one",
                                             .url = "https://a.example",
                                             .service = "A",
                                             .note = "a note"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, Extras{"lastUsedAt last_touch=1700000000\n"
                                     "folder grouping=(none)\n"});
    EXPECT_EQ(reading.unread("identifier"), 1);
    EXPECT_EQ(reading.unread("attachments"), 1);
}

TEST(LastPassCSVTest, keepsOtherTypedNotesAsTheyAreAndTellsTheirTypes) {
    for (const auto& [type, told] :
         std::vector<std::pair<std::string, std::string_view>>{{"Bank Account", "Bank Account"},
                                                               {"Custom_123", "Custom"},
                                                               {"Spaceship", "other type"},
                                                               {"Credit Cards", "other type"}}) {
        const std::string text = "NoteType:" + type + "\nLanguage:en-US\nNotes:n";
        const Reading reading = noteWith(text);
        const Outcome expected = {.notes = {{.color = {}, .title = "Title", .content = text}}};
        EXPECT_EQ(reading.records, expected);
        EXPECT_EQ(reading.found(FindingKind::typedNote, told), 1) << type;
    }
    EXPECT_EQ(noteWith("NoteTypes are fun").found(FindingKind::typedNote), 0);
}

TEST(LastPassCSVTest, readsDatesOfCards) {
    struct Dated {
        std::string_view text;
        std::int64_t month;
        std::int64_t year;
        bool isRead;
    };

    for (const auto& [text, month, year, isRead] :
         {Dated{",", 0, 0, true}, Dated{"March,", 3, 0, true}, Dated{",2027", 0, 2027, true},
          Dated{" december , 27 ", 12, 2027, true}, Dated{"Mars,2027", 0, 0, false},
          Dated{"March,soon", 0, 0, false}, Dated{"March", 0, 0, false}}) {
        const Reading reading =
            noteWith("NoteType:Credit Card\nExpiration Date:" + std::string(text) + "\nNotes:");
        ASSERT_EQ(reading.records.cards.size(), 1) << text;
        EXPECT_EQ(reading.records.cards[0].expirationMonth, month) << text;
        EXPECT_EQ(reading.records.cards[0].expirationYear, year) << text;
        EXPECT_EQ(reading.found(FindingKind::unreadableDate, "Expiration Date"), isRead ? 0 : 1);
        EXPECT_EQ(reading.extras.at(0),
                  isRead ? "" : "customText Expiration Date=" + std::string(text) + "\n");
    }
}

TEST(LastPassCSVTest, goesOnWithTheValueOfACardOverLines) {
    const Reading reading =
        noteWith("NoteType:Credit Card\nstray\nName on Card:Ann\nMarie: Example\n"
                 "Number:1\nNumber:2\nStart Date:,");
    const Outcome expected = {.cards = {{.cardNumber = "1",
                                         .custName = "Title",
                                         .holderName = "Ann\nMarie: Example",
                                         .cvv = "",
                                         .pin = "",
                                         .note = ""}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, Extras{"customText =stray\ncustomSecret Number=2\n"});
}

TEST(LastPassCSVTest, leavesEntitiesAndCountsThem) {
    const Reading reading =
        readingOf(std::string(sevenColumns) + "https://a.example/?x&amp;y,ann,a&lt;b,R&D,A,,0\n");
    EXPECT_EQ(reading.records.passwords.at(0).password, "a&lt;b");
    EXPECT_EQ(reading.found(FindingKind::htmlEntity), 2);
    EXPECT_EQ(reading.found(FindingKind::htmlEntity, "password"), 1);
}

TEST(LastPassCSVTest, leavesOutWhatHasNothingButAFolder) {
    const Reading reading = readingOf(std::string(sevenColumns) + "http://,,,,,Work,1\n"
                                                                  "http://sn,u,p,,,,0\n");
    EXPECT_EQ(reading.leftOut(LeftOutReason::empty), 1);
    // A note has no user name and no password.
    EXPECT_EQ(reading.extras, Extras{"furtherUserName username=u\ncustomSecret password=p\n"});
}

TEST(LastPassCSVTest, readsCardsOverLinesOfAnyEnd) {
    const Reading reading = noteWith("NoteType:Credit Card\r\nName on Card:Ann\r\nNumber\r\n"
                                     "Number:1\r\nExpiration Date:March,2027\r\n"
                                     "Expiration Date:April,2028\r\nNotes:a\r\nb");
    const Outcome expected = {.cards = {{.cardNumber = "1",
                                         .custName = "Title",
                                         .holderName = "Ann\r\nNumber",
                                         .cvv = "",
                                         .pin = "",
                                         .note = "a\r\nb",
                                         .expirationMonth = 3,
                                         .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, Extras{"customText Expiration Date=April,2028\n"});
    EXPECT_EQ(noteWith("NoteType:Credit Card\nNotes:n").records.cards.at(0).note, "n");
}

TEST(LastPassCSVTest, readsNotesThatWereWrittenWithoutQuotes) {
    const Reading reading = readingOf(std::string(eightColumns) + "http://sn,,,,first line\n"
                                                                  "second (\") line,title,,0\n"
                                                                  "https://b,bob,test\",,,B,,0\n"
                                                                  "https://a,ann,\"pw,,n,A,,0\n");
    const Outcome expected = {
        .passwords = {{.username = "bob", .password = "test\"", .url = "https://b", .service = "B"},
                      {.username = "ann",
                       .password = "\"pw",
                       .url = "https://a",
                       .service = "A",
                       .color = {},
                       .note = "n"}},
        .notes = {{.color = {}, .title = "title", .content = "first line\nsecond (\") line"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.found(FindingKind::joinedLines), 1);
    EXPECT_EQ(reading.found(FindingKind::strayQuote), 3);
}

} // namespace

} // namespace Rellinor::Tests
