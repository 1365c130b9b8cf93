#include "Private/Importers/OnePassword/OnePUX.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/JSONLosses.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/Zip.hpp"

namespace Rellinor::Tests {

namespace {

std::string archive(std::string_view json) {
    return zipOf({{.name = "export.attributes", .contents = R"({"version":3})"},
                  {.name = "export.data", .contents = json, .isDeflated = true},
                  {.name = "files/"},
                  {.name = "files/d1__u-file.txt", .contents = "u-text"}});
}

Reading read(std::string_view json) {
    return readingOf(Layout::onePassword1PUX, archive(json));
}

std::string vaultOf(std::string_view items) {
    return R"({"accounts":[{"vaults":[{"items":[)" + std::string(items) + "]}]}]}";
}

constexpr std::string_view vault = R"({"accounts": [{
 "attrs": {"accountName": "u-account", "email": "u-mail", "uuid": "u-uuid"},
 "vaults": [{"attrs": {"uuid": "u-vault", "desc": "u-desc", "name": "Personal", "type": "P"},
 "items": [
  {"uuid": "u-1", "favIndex": 1, "createdAt": 1663642267, "updatedAt": 1668287167,
   "state": "archived", "categoryUuid": "001",
   "overview": {"title": "t-Mail", "subtitle": "u-ann", "url": "t-https://mail.example.org",
    "urls": [{"label": "website", "url": "t-https://mail.example.org"},
             {"label": "mobile", "url": "t-https://m.example.org"}],
    "tags": ["t-tag"], "icons": null, "ps": 100, "pbe": 86.5, "pgrng": true,
    "watchtowerExclusions": null},
   "details": {"loginFields": [
     {"value": "t-ann", "id": "", "name": "user", "fieldType": "T", "designation": "username"},
     {"value": "t-pw", "id": "", "name": "pass", "fieldType": "P", "designation": "password"},
     {"value": {"email_address": "t-masked@example.org", "provider": "u-provider"}, "id": "m",
      "name": "", "fieldType": "E"}],
    "notesPlain": "t-note",
    "sections": [{"title": "u-section", "name": "s", "fields": [
     {"title": "one-time", "id": "TOTP_1", "value": {"totp": "t-otp"}, "guarded": false},
     {"title": "pin", "id": "x1", "value": {"concealed": "t-9876"}},
     {"title": "site", "id": "x2", "value": {"url": "t-https://other.example.org"}},
     {"title": "day", "id": "x3", "value": {"date": 1700000000}},
     {"title": "home", "id": "x4", "value": {"address": {"street": "t-street", "city": "t-city"}}},
     {"title": "mail", "id": "x5", "value": {"email": {"email_address": "t-a@b", "provider": null}}},
     {"title": "", "id": "x6", "value": {"phone": "t-555"}},
     {"title": "doc", "id": "x7", "value": {"file": {"fileName": "u-name", "documentId": "u-d"}}}]}],
    "passwordHistory": [{"value": "u-old", "time": 1}]}},
  {"state": "active", "categoryUuid": "002", "createdAt": 1, "updatedAt": 2, "favIndex": 0,
   "details": {"loginFields": [], "notesPlain": "t-blue", "sections": [
    {"title": "", "fields": [
     {"title": "cardholder name", "id": "cardholder", "value": {"string": "t-Ann Example"}},
     {"title": "type", "id": "type", "value": {"creditCardType": "t-visa"}},
     {"title": "number", "id": "ccnum", "value": {"creditCardNumber": "t-4111"}},
     {"title": "verification number", "id": "cvv", "value": {"concealed": "t-123"}},
     {"title": "expiry date", "id": "expiry", "value": {"monthYear": 202703}},
     {"title": "valid from", "id": "validFrom", "value": {"monthYear": 0}}]},
    {"title": "u-Additional", "name": "details", "fields": [
     {"title": "PIN", "id": "pin", "value": {"concealed": "t-9999"}}]}]},
   "overview": {"title": "t-Main card", "url": ""}},
  {"categoryUuid": "003", "overview": {"title": "t-Note"}, "details": {"notesPlain": "t-text"}},
  {"categoryUuid": "005", "overview": {"title": "t-Wifi"}, "details": {"password": "t-secret"}},
  {"categoryUuid": "110", "overview": {"title": "t-Server"}, "details": {"sections": [{"fields": [
    {"title": "URL", "id": "url", "value": {"string": "t-ssh://x"}},
    {"title": "username", "id": "username", "value": {"string": "t-root"}},
    {"title": "password", "id": "password", "value": {"concealed": "t-toor"}},
    {"title": "console", "id": "console_password", "value": {"concealed": "t-console"}}]}]}},
  {"categoryUuid": "114", "overview": {"title": "t-Key"}, "details": {"notesPlain": "t-key note",
   "sections": [{"fields": [{"title": "private key", "id": "private_key", "value": {"sshKey":
    {"privateKey": "t-private", "metadata": {"publicKey": "t-public"}}}}]}]}}
 ]}]}]})";

TEST(OnePUXTest, readsEveryKind) {
    const Reading reading = read(vault);
    const Outcome expected = {
        .passwords = {{.username = "t-ann",
                       .password = "t-pw",
                       .url = "t-https://mail.example.org",
                       .service = "t-Mail",
                       .note = "t-note"},
                      {.username = "", .password = "t-secret", .url = "", .service = "t-Wifi"},
                      {.username = "t-root",
                       .password = "t-toor",
                       .url = "t-ssh://x",
                       .service = "t-Server"}},
        .notes = {{.color = {}, .title = "t-Note", .content = "t-text"},
                  {.color = {},
                   .title = "t-Key",
                   .content = "private key privateKey: t-private\n"
                              "private key metadata publicKey: t-public\n\nt-key note"}},
        .cards = {{.cardNumber = "t-4111",
                   .custName = "t-Main card",
                   .holderName = "t-Ann Example",
                   .cvv = "t-123",
                   .pin = "t-9999",
                   .note = "t-blue",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "email m=t-masked@example.org\n"
                                    "oneTimePassword one-time=t-otp\n"
                                    "customSecret pin=t-9876\n"
                                    "furtherURL site=t-https://other.example.org\n"
                                    "customText day=1700000000\n"
                                    "customText home street=t-street\n"
                                    "customText home city=t-city\n"
                                    "email mail=t-a@b\n"
                                    "phone x6=t-555\n"
                                    "folder vault=Personal\n"
                                    "favourite favIndex=true\n"
                                    "createdAt createdAt=1663642267\n"
                                    "modifiedAt updatedAt=1668287167\n"
                                    "archived state=true\n"
                                    "tag tags=t-tag\n"
                                    "furtherURL mobile=t-https://m.example.org\n");
    EXPECT_EQ(reading.extras.at(2), "customSecret console=t-console\nfolder vault=Personal\n");
    EXPECT_EQ(reading.extras.back(), "customText type=t-visa\n"
                                     "folder vault=Personal\n"
                                     "createdAt createdAt=1\n"
                                     "modifiedAt updatedAt=2\n");
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "SSH Key"), 1);
    for (const std::string_view part :
         {"name and e-mail address of the account", "descriptions of vaults", "identifiers",
          "subtitles", "providers of addresses", "password history",
          "label of the first address"}) {
        EXPECT_EQ(reading.unread(part), 1) << part;
    }
    EXPECT_EQ(reading.unread("titles of sections"), 2);
    EXPECT_EQ(reading.unread("attachments"), 2); // in the archive, and in an item
}

TEST(OnePUXTest, losesOneValueForOneOfAnotherType) {
    expectSingleLosses(Layout::onePassword1PUX, vault, archive);
}

TEST(OnePUXTest, readsItemsOfOldVersions) {
    const Reading reading =
        read(vaultOf(R"({"item":{"categoryUuid":"001","overview":{"title":"a"},"trashed":false}},)"
                     R"({"item":{"categoryUuid":"001","overview":{"title":"b"},"trashed":true}},)"
                     R"({"file":{"attrs":{},"path":"files/x"}},7)"));
    EXPECT_EQ(reading.delivered(), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::fieldOfOtherType), 1);
    EXPECT_EQ(reading.unread("attachments"), 2);
}

TEST(OnePUXTest, keepsADateThatIsNone) {
    const Reading reading =
        read(vaultOf(R"({"categoryUuid":"002","details":{"sections":[{"fields":[)"
                     R"({"title":"x","id":"expiry","value":{"monthYear":202713}}]}]}})"));
    EXPECT_EQ(reading.extras.at(0), "customText expiry=202713\n");
    EXPECT_EQ(reading.found(FindingKind::unreadableDate, "expiry"), 1);
}

TEST(OnePUXTest, readsFieldsOfEveryType) {
    const Reading reading = read(vaultOf(R"({"categoryUuid":"001","new":"u-1",
 "overview":{"title":"t-A","new":"u-2"},
 "details":{"new":"u-3","loginFields":[
   {"value":"","id":"i1","name":"user","fieldType":"T","designation":"username"},
   {"value":"t-tel","id":"i2","name":"tel","fieldType":"TEL"},
   {"value":"t-site","id":"i3","name":"","fieldType":"U"},
   {"value":"t-a@b","id":"i4","name":"mail","fieldType":"E","designation":"username"},
   {"value":"t-ann","id":"i5","name":"old","fieldType":"T","designation":"username"}],
  "sections":[{"title":"","name":"u-s","hideAddAnotherField":true,"new":"u-4","fields":[
   {"title":"sso","id":"x1","value":{"ssoLogin":{"provider":"t-provider",
     "item":{"vaultUuid":"u-5","itemUuid":"u-6"}}}},
   {"title":"text","id":"x2","value":{"ssoLogin":"t-text"}},
   {"title":"ref","id":"x3","value":{"reference":"u-7"}},
   {"title":"gender","id":"x4","value":{"gender":"t-female"},"new":"u-8"},
   {"title":"mail","id":"x5","value":{"email":"t-c@d"}},
   {"title":"code","id":"x6","value":{"totp":"t-otp"}},
   {"title":"on","id":"x7","value":{"string":true}},
   {"title":"none","id":"x8","value":{"string":null}}]}]}})"));
    const Outcome expected = {
        .passwords = {{.username = "t-a@b", .password = "", .url = "", .service = "t-A"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "phone tel=t-tel\n"
                                    "furtherURL i3=t-site\n"
                                    "furtherUserName old=t-ann\n"
                                    "customText sso=t-provider\n"
                                    "customText text=t-text\n"
                                    "customText gender=t-female\n"
                                    "email mail=t-c@d\n"
                                    "oneTimePassword code=t-otp\n"
                                    "customText on=true\n");
    EXPECT_EQ(reading.unread("other members"), 1);
    EXPECT_EQ(reading.unread("references to other items"), 1);
    EXPECT_TRUE(reading.report.findings().empty());
}

TEST(OnePUXTest, leavesOutTheTrashAndKeepsAnEntryThatIsAnAddress) {
    const Reading reading =
        read(vaultOf(R"({"state":"trashed","overview":{"title":"a"}},)"
                     R"({"state":"deleted","overview":{"title":"b"}},)"
                     R"({"categoryUuid":"004","overview":{"url":"https://a.example"}},)"
                     R"({"item":{"overview":{"title":"c"}},"file":{"path":"files/x"}})"));
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 2);
    EXPECT_EQ(reading.extras, (std::vector<std::string>{"furtherURL url=https://a.example\n", ""}));
    EXPECT_EQ(reading.unread("attachments"), 2); // in the archive, and beside an entry
}

TEST(OnePUXTest, keepsEachOfManyFields) {
    constexpr int count = 200;
    std::string fields;
    std::string extras;
    for (int number = 0; number < count; ++number) {
        const std::string digits = std::to_string(number);
        fields += (number > 0 ? "," : "") + (R"({"id":"x)" + digits) + R"(","value":{"string":")" +
                  digits + R"("}})";
        extras += "customText x" + digits + "=" + digits + "\n";
    }
    EXPECT_EQ(read(vaultOf(R"({"categoryUuid":"001","details":{"sections":[{"fields":[)" + fields +
                           "]}]}}"))
                  .extras.at(0),
              extras);
}

} // namespace

} // namespace Rellinor::Tests
