#include "Private/Importers/Bitwarden/BitwardenJSON.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/JSONLosses.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/Zip.hpp"

namespace Rellinor::Tests {

namespace {

Reading read(std::string_view text) {
    return readingOf(Layout::bitwardenJSON, text);
}

constexpr std::string_view vault = R"({
 "encrypted": false,
 "folders": [{"id": "F1", "name": "Work/Mail"}, {"id": "F2", "name": "u-unused"}],
 "items": [
  {"passwordHistory": [{"lastUsedDate": "2023-01-01T10:00:00.000Z", "password": "u-old"}],
   "revisionDate": "t-2024-05-02T10:00:00.000Z", "creationDate": "t-2024-05-01T10:00:00.000Z",
   "archivedDate": "2024-06-01T10:00:00.000Z", "id": "u-id",
   "organizationId": null, "folderId": "F1", "collectionIds": null, "type": 1, "reprompt": 1,
   "name": "t-Mail", "notes": "t-two\nlines", "favorite": true,
   "fields": [{"name": "hint", "value": "t-blue", "type": 0, "linkedId": null},
              {"name": "code", "value": "t-9876", "type": 1, "linkedId": null},
              {"name": "on", "value": "true", "type": 2, "linkedId": null},
              {"name": "linked", "value": null, "type": 3, "linkedId": 100}],
   "login": {"uris": [{"match": null, "uri": "t-https://mail.example.org"},
                      {"match": 1, "uri": "t-https://m.example.org"}],
             "username": "t-ann", "password": "t-p\"1", "totp": "t-JBSWY3DPEHPK3PXP",
             "fido2Credentials": [{"keyValue": "u-key"}]}},
  {"type": 2, "name": "t-Note", "notes": "t-secret", "favorite": false, "secureNote": {"type": 0},
   "folderId": null},
  {"type": 3, "name": "t-Main card", "notes": "t-blue card", "favorite": false,
   "card": {"cardholderName": "t-Ann Example", "brand": "t-Visa", "number": "t-4111",
            "expMonth": "3", "expYear": "2027", "code": "t-123"}},
  {"type": 4, "name": "t-Me", "notes": "t-note", "favorite": false,
   "fields": [{"name": "nick", "value": "t-nick", "type": 0}],
   "identity": {"title": "t-Dr", "firstName": "t-Ann", "middleName": null, "ssn": "t-078"}}
 ]})";

TEST(BitwardenJSONTest, readsEveryKind) {
    const Reading reading = read(vault);
    const Outcome expected = {
        .passwords = {{.username = "t-ann",
                       .password = "t-p\"1",
                       .url = "t-https://mail.example.org",
                       .service = "t-Mail",
                       .note = "t-two\nlines"}},
        .notes = {{.color = {}, .title = "t-Note", .content = "t-secret"},
                  {.color = {},
                   .title = "t-Me",
                   .content = "nick: t-nick\ntitle: t-Dr\nfirstName: t-Ann\nssn: t-078\n\nt-note"}},
        .cards = {{.cardNumber = "t-4111",
                   .custName = "t-Main card",
                   .holderName = "t-Ann Example",
                   .cvv = "t-123",
                   .pin = "",
                   .note = "t-blue card",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, (std::vector<std::string>{"customText hint=t-blue\n"
                                                        "customSecret code=t-9876\n"
                                                        "customText on=true\n"
                                                        "furtherURL uri=t-https://m.example.org\n"
                                                        "oneTimePassword totp=t-JBSWY3DPEHPK3PXP\n"
                                                        "modifiedAt revisionDate="
                                                        "t-2024-05-02T10:00:00.000Z\n"
                                                        "createdAt creationDate="
                                                        "t-2024-05-01T10:00:00.000Z\n"
                                                        "archived archivedDate=true\n"
                                                        "other archivedDate="
                                                        "2024-06-01T10:00:00.000Z\n"
                                                        "folder folderId=Work/Mail\n"
                                                        "favourite favorite=true\n",
                                                        "", "", "customText brand=t-Visa\n"}));
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Identity"), 1);
    for (const std::string_view part :
         {"password history", "identifiers", "linked fields", "names of empty fields", "passkeys",
          "settings of the product", "folders without entries of their own"}) {
        EXPECT_EQ(reading.unread(part), 1) << part;
    }
    EXPECT_EQ(reading.report.placeUnit(), PlaceUnit::record);
}

TEST(BitwardenJSONTest, losesOneValueForOneOfAnotherType) {
    expectSingleLosses(Layout::bitwardenJSON, vault);
    EXPECT_EQ(read(R"({"items":[{"type":"x","login":{"password":5.5}},{"name":[],"type":2}]})")
                  .found(FindingKind::valueOfOtherType),
              3);
}

TEST(BitwardenJSONTest, leavesOutTheTrashAndWhatIsEmptyOrNoObject) {
    const Reading reading = read(
        R"({"items":[{"type":1,"name":"x","deletedDate":"2024"},{"type":1,"favorite":true},5]})");
    EXPECT_EQ(reading.delivered(), 0);
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::empty), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::fieldOfOtherType), 1);
}

TEST(BitwardenJSONTest, readsCollectionsOfAnOrganisationAndDatesThatAreNone) {
    const Reading reading =
        read(R"({"collections":[{"id":"C","name":"Team"}],"items":[{"type":3,"collectionIds":)"
             R"(["C",null],"card":{"expMonth":"13","expYear":"27"}}]})");
    EXPECT_EQ(reading.extras.at(0), "customText expMonth=13\nfolder collectionIds=Team\n");
    EXPECT_EQ(reading.records.cards.at(0).expirationYear, 2027);
    EXPECT_EQ(reading.found(FindingKind::unreadableDate, "expMonth"), 1);
}

TEST(BitwardenJSONTest, refusesWhatIsEncryptedOrOfAnotherShape) {
    const auto failureOf = [](std::string_view text) { return read(text).report.failure().reason; };
    EXPECT_EQ(failureOf(R"({"encrypted":true,"items":[]})"), FailureReason::encrypted);
    EXPECT_EQ(failureOf(R"({"logins":[]})"), FailureReason::wrongShape);
    EXPECT_EQ(failureOf("[]"), FailureReason::wrongShape);
    EXPECT_EQ(failureOf("{}"), FailureReason::none);
    const Reading broken = read("{\"items\":[\n{\"name\":\"x\"},\n}");
    EXPECT_EQ(broken.report.failure().reason, FailureReason::notJSON);
    EXPECT_EQ(broken.report.failure().place, 3);
}

TEST(BitwardenJSONTest, readsTheArchiveAndCountsItsAttachments) {
    if (!isRead(Layout::bitwardenZip)) {
        GTEST_SKIP() << "archives are left out";
    }
    const auto archive = [](std::string_view name, std::string_view text) {
        return zipOf({{.name = "attachments/1/data.json", .contents = "x"},
                      {.name = name, .contents = text, .isDeflated = true}});
    };
    const Reading reading = readingOf(Layout::bitwardenZip, archive("DATA.json", vault));
    EXPECT_EQ(reading.records, read(vault).records);
    EXPECT_EQ(reading.unread("attachments"), 1);
    EXPECT_EQ(readExport(ExportFile::inMemory(archive("data.json", vault), "")).report.layout(),
              Layout::bitwardenZip);
    const Reading broken = readingOf(Layout::bitwardenZip, archive("data.json", "{\n"));
    EXPECT_EQ(broken.report.failure().reason, FailureReason::cutShort);
    EXPECT_EQ(broken.report.failure().place, 2);
    EXPECT_EQ(readingOf(Layout::bitwardenZip, zipOf({{.name = "a"}})).report.failure().reason,
              FailureReason::wrongShape);
    EXPECT_EQ(readingOf(Layout::bitwardenZip, "{}").report.failure().reason,
              FailureReason::damaged);
}

TEST(BitwardenJSONTest, takesBlanksAroundADateForNothing) {
    const Reading reading =
        read(R"({"items":[{"type":3,"name":"x","card":{"expMonth":" 3 ","expYear":" "}}]})");
    EXPECT_EQ(reading.records.cards.at(0).expirationMonth, 3);
    EXPECT_EQ(reading.records.cards.at(0).expirationYear, 0);
    EXPECT_EQ(reading.extras.at(0), "");
    EXPECT_TRUE(reading.report.findings().empty());
}

} // namespace

} // namespace Rellinor::Tests
