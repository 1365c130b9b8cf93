#include "Private/Importers/OnePassword/OnePIF.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Files.hpp"
#include "Tests/Support/JSONChanges.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

Reading read(std::string_view text) {
    return readingOf(Layout::onePassword1PIF, text);
}

std::string entry(std::string_view type, std::string_view members) {
    return R"({"typeName":")" + std::string(type) + R"(",)" + std::string(members) + "}\n";
}

constexpr std::string_view login =
    R"({"uuid":"t-uuid","typeName":"webforms.WebForm","title":"t-title","location":"t-location",)"
    R"("locationKey":"t-key","folderUuid":"F","createdAt":11,"updatedAt":12,"trashed":false,)"
    R"("contentsHash":"t-hash","openContents":{"tags":["t-tag1","t-tag2"],"faveIndex":3,)"
    R"("scope":"t-scope"},"secureContents":{"fields":[)"
    R"({"designation":"username","name":"user","type":"T","value":"t-user"},)"
    R"({"designation":"password","name":"pass","type":"P","value":"t-password"},)"
    R"({"designation":"","name":"code","type":"P","value":"t-code"}],)"
    R"("URLs":[{"label":"website","url":"t-url1"},{"label":"website","url":"t-url2"}],)"
    R"("sections":[{"name":"s","title":"t-section","fields":[)"
    R"({"k":"concealed","n":"TOTP_1","t":"one-time","v":"t-otp"},)"
    R"({"k":"date","n":"x1","t":"day","v":99},)"
    R"({"k":"address","n":"x2","t":"home","v":{"street":"t-street","city":"t-city"}}]}],)"
    R"("passwordHistory":[{"value":"t-old","time":1}],"htmlAction":"t-action",)"
    R"("notesPlain":"t-note"}})";

constexpr std::string_view card =
    R"({"typeName":"wallet.financial.CreditCard","title":"t-title","secureContents":{)"
    R"("cardholder":"t-holder","ccnum":"t-number","cvv":"t-cvv","pin":"t-pin","bank":"t-bank",)"
    R"("expiry_mm":"3","expiry_yy":"27","notesPlain":"t-note"}})";

constexpr std::string_view identity =
    R"({"typeName":"identities.Identity","title":"t-title","secureContents":{)"
    R"("firstname":"t-first","birthdate":5,"address":{"city":"t-city"},"notesPlain":"t-note"}})";

constexpr std::string_view folder =
    R"({"typeName":"system.folder.Regular","uuid":"F","title":"Work"})";

TEST(OnePIFTest, readsAllOfAWebForm) {
    const Reading reading = read(std::string(folder) + "\n***\n" + std::string(login));
    const Outcome expected = {.passwords = {{.username = "t-user",
                                             .password = "t-password",
                                             .url = "t-location",
                                             .service = "t-title",
                                             .note = "t-note"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "customSecret code=t-code\n"
                                    "oneTimePassword one-time=t-otp\n"
                                    "customText day=99\n"
                                    "customText home street=t-street\n"
                                    "customText home city=t-city\n"
                                    "folder folderUuid=Work\n"
                                    "createdAt createdAt=11\n"
                                    "modifiedAt updatedAt=12\n"
                                    "tag tags=t-tag1\n"
                                    "tag tags=t-tag2\n"
                                    "favourite faveIndex=true\n"
                                    "furtherURL website=t-url1\n"
                                    "furtherURL website=t-url2\n");
    for (const std::string_view part :
         {"identifiers and hashes", "settings of the product", "password history",
          "form of the web page", "titles of sections", "identifiers and looks of fields"}) {
        EXPECT_EQ(reading.unread(part), 1) << part;
    }
    EXPECT_EQ(reading.leftOut(LeftOutReason::placeholder), 1);
    EXPECT_EQ(reading.report.placeUnit(), PlaceUnit::line);
}

TEST(OnePIFTest, readsAnAddressOnceIfItIsTheLocationToo) {
    const Reading reading =
        read(R"({"typeName":"webforms.WebForm","location":"a","secureContents":{"URLs":[)"
             R"({"label":"","url":"a"},{"url":"b"}]}})");
    EXPECT_EQ(reading.records.passwords.at(0).url, "a");
    EXPECT_EQ(reading.extras.at(0), "furtherURL =b\n");
}

TEST(OnePIFTest, takesAnEmailAddressForAMissingUserName) {
    const Reading reading = read(
        R"({"typeName":"webforms.WebForm","secureContents":{"fields":[)"
        R"({"name":"mail","type":"E","value":"a@b"},{"name":"2","type":"E","value":"c@d"}]}})");
    EXPECT_EQ(reading.records.passwords.at(0).username, "a@b");
    EXPECT_EQ(reading.extras.at(0), "email 2=c@d\n");
}

TEST(OnePIFTest, readsKindsWithUserNameAndPasswordAsLogins) {
    const std::string text =
        entry("passwords.Password", R"("title":"P","secureContents":{"password":"p"})") +
        entry(
            "wallet.computer.UnixServer",
            R"("title":"S","secureContents":{"url":"u","username":"n","password":"p","os":"x"})") +
        entry("wallet.onlineservices.Email.v2",
              R"("secureContents":{"sections":[{"fields":[)"
              R"({"k":"string","n":"pop_username","t":"user","v":"n"},)"
              R"({"k":"concealed","n":"pop_password","t":"pass","v":"p"},)"
              R"({"k":"concealed","n":"smtp_password","t":"smtp","v":"q"}]}]})");
    const Reading reading = read(text);
    const Outcome expected = {
        .passwords = {{.username = "", .password = "p", .url = "", .service = "P"},
                      {.username = "n", .password = "p", .url = "u", .service = "S"},
                      {.username = "n", .password = "p", .url = ""}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (std::vector<std::string>{"", "customText os=x\n", "customSecret smtp=q\n"}));
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote), 0);
}

TEST(OnePIFTest, readsCards) {
    const Reading reading = read(
        std::string(card) + "\n" +
        entry("wallet.financial.CreditCard",
              R"("title":"2","secureContents":{"ccnum":"4","sections":[{"fields":[)"
              R"({"k":"string","n":"ccnum","t":"number","v":"4"},)"
              R"({"k":"monthYear","n":"expiry","t":"expiry date","v":203112}]}]})") +
        entry("wallet.financial.CreditCard",
              R"("title":"3","secureContents":{"expiry_mm":"13","expiry_yy":"soon"})") +
        entry(
            "wallet.financial.CreditCard",
            R"("title":"4","secureContents":{"expiry":202703,"expiry_mm":"4","expiry_yy":"27"})"));
    const Outcome expected = {
        .cards = {
            {.cardNumber = "t-number",
             .custName = "t-title",
             .holderName = "t-holder",
             .cvv = "t-cvv",
             .pin = "t-pin",
             .note = "t-note",
             .expirationMonth = 3,
             .expirationYear = 2027},
            {.cardNumber = "4",
             .custName = "2",
             .holderName = "",
             .cvv = "",
             .pin = "",
             .note = "",
             .expirationMonth = 12,
             .expirationYear = 2031},
            {.cardNumber = "", .custName = "3", .holderName = "", .cvv = "", .pin = "", .note = ""},
            {.cardNumber = "",
             .custName = "4",
             .holderName = "",
             .cvv = "",
             .pin = "",
             .note = "",
             .expirationMonth = 3,
             .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (std::vector<std::string>{"customText bank=t-bank\n", "",
                                        "customText expiry_mm=13\ncustomText expiry_yy=soon\n",
                                        "customText expiry_mm=4\n"}));
    EXPECT_EQ(reading.found(FindingKind::unreadableDate, "expiry_mm"), 1);
}

TEST(OnePIFTest, readsSecureNotesAndTellsWhichKindsBecomeNotes) {
    const Reading reading =
        read(entry("securenotes.SecureNote", R"("title":"N","secureContents":{"notesPlain":"n"})") +
             std::string(identity) + "\n" +
             entry("wallet.new.Thing", R"("secureContents":{"notesPlain":"only"})") +
             R"({"title":"no type"})");
    const Outcome expected = {
        .notes = {{.color = {}, .title = "N", .content = "n"},
                  {.color = {},
                   .title = "t-title",
                   .content = "firstname: t-first\nbirthdate: 5\naddress city: t-city\n\nt-note"},
                  {.color = {}, .title = "", .content = "only"},
                  {.color = {}, .title = "no type", .content = ""}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Identity"), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "unknown kind"), 2);
}

TEST(OnePIFTest, leavesOutTheTrashAndWhatIsEmpty) {
    const Reading reading =
        read(entry("webforms.WebForm", R"("trashed":true,"title":"gone")") +
             entry("webforms.WebForm", R"("createdAt":1,"openContents":{"tags":["x"]})"));
    EXPECT_EQ(reading.delivered(), 0);
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::empty), 1);
}

TEST(OnePIFTest, losesOneValueForOneOfAnotherType) {
    for (const std::string_view whole : {login, card, identity}) {
        const std::string before = read(whole).texts();
        forEachChange(whole, [&](const JSONChange& change) {
            const std::string where = change.path + " " + std::string(change.name);
            const Reading reading = read(change.text);
            ASSERT_EQ(reading.delivered(), 1) << where;
            for (const std::string& text : change.kept) {
                if (text.starts_with("t-") && before.contains(text)) {
                    EXPECT_TRUE(reading.texts().contains(text)) << text << " without " << where;
                }
            }
        });
    }
    forEachChange(login, [&](const JSONChange& change) {
        const bool isRead = !change.path.contains("Hash") && !change.path.contains("uuid") &&
                            !change.path.contains("Key") && !change.path.contains("html") &&
                            !change.path.contains("History") && !change.path.contains("scope") &&
                            change.path != "/secureContents/sections/0/name";
        if (isRead && change.name == "1.5") {
            EXPECT_GE(read(change.text).found(FindingKind::valueOfOtherType), 1) << change.path;
        }
    });
}

TEST(OnePIFTest, failsAtALineThatIsNotJSON) {
    for (const std::string_view bad : {"{\"title\":\"x", "{},{}", "{}]", "{} x"}) {
        const Reading reading = read("{}\n***\n" + std::string(bad) + "\n{}\n");
        EXPECT_EQ(reading.records.error, NSError("Rellinor.PIFParsingError", 1)) << bad;
        EXPECT_EQ(reading.report.failure().place, 3) << bad;
        EXPECT_EQ(reading.report.recordCount(), 0) << bad;
    }
    // Two lines that are JSON only together.
    EXPECT_EQ(read("{\"a\":[{}\n{}]},{}\n").report.failure().place, 1);
    EXPECT_EQ(read("name,password\nx,y\n").report.failure().reason, FailureReason::notJSON);
}

TEST(OnePIFTest, placesRecordsByTheirLinesAndCountsOtherLines) {
    const Reading reading = read("***\n\n" + std::string(identity) + "\r\n {\"title\":\"x\"}\n");
    EXPECT_EQ(reading.report.findings().front().places.first, std::vector<std::uint64_t>{3});
    EXPECT_EQ(reading.unread("lines that are no record"), 1);
}

TEST(OnePIFTest, readsTheSameVaultAsFromTirel) {
    const std::string vault = RELLINOR_VAULT;
    const Reading reading =
        readingOf(Layout::onePassword1PIF, ExportFile::atPath(vault + "/OnePassword/export.1pif"));
    Outcome expected =
        readingOf(Layout::tirelJSON, ExportFile::atPath(vault + "/Tirel/export.json")).records;
    for (Password& entry : expected.passwords) { // what 1Password does not have
        entry.color.reset();
        entry.pwdChange.reset();
    }
    for (Note& note : expected.notes) {
        note.color.reset();
    }
    for (Card& entry : expected.cards) {
        entry.expirationDay = 0;
    }
    EXPECT_EQ(expected.passwords.size(), 24);
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.leftOut(LeftOutReason::placeholder), 8);
    EXPECT_TRUE(reading.report.findings().empty());
}

TEST(OnePIFTest, readsTheFolderThatAnExportIs) {
    const TemporaryFolder files;
    const std::string path = files.file("data.1pif", card);
    const std::string_view whole = std::string_view(path).substr(0, path.rfind('/'));
    EXPECT_EQ(readingOf(Layout::onePassword1PIF, ExportFile::atPath(whole)).delivered(), 1);
}

TEST(OnePIFTest, readsWhatStandsOutsideOfItsPlace) {
    const Reading reading =
        read(R"({"typeName":"system.folder.Regular","uuid":"F"})"
             "\n"
             R"({"typeName":"system.folder.Regular","title":"Work"})"
             "\n" +
             entry("wallet.computer.UnixServer",
                   R"("title":"a","title":"","title":"b","folderUuid":"F","new":1,"pin":"2",)"
                   R"("URLs":[{"url":"https://a.example"}],)"
                   R"("secureContents":{"pin":"3","telephonePin":"4","sections":[{"fields":[)"
                   R"({"k":"URL","n":"s","t":"site","v":"https://b.example"}]}]})"));
    const Outcome expected = {
        .passwords = {
            {.username = "", .password = "", .url = "https://a.example", .service = "a"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "customSecret pin=3\ncustomSecret telephonePin=4\n"
                                    "furtherURL site=https://b.example\n");
    EXPECT_EQ(reading.leftOut(LeftOutReason::placeholder), 2);
    EXPECT_EQ(reading.found(FindingKind::repeatedMember, "title"), 1);
    EXPECT_EQ(reading.unread("other members"), 1);
    EXPECT_EQ(reading.unread("folder that is not in the file"), 1);
}

} // namespace

} // namespace Rellinor::Tests
