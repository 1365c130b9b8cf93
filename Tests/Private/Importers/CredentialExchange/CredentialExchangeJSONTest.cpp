#include "Private/Importers/CredentialExchange/CredentialExchangeJSON.hpp"

#include <algorithm>
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
    return readingOf(Layout::credentialExchangeJSON, text);
}

std::string item(std::string_view credentials) {
    return R"({"items":[{"id":"a","title":"x","credentials":[)" + std::string(credentials) + "]}]}";
}

constexpr std::string_view vault = R"({
 "version": {"major": 1, "minor": 0}, "exporterRpId": "u-rp", "exporterDisplayName": "u-name",
 "timestamp": 1705228800,
 "accounts": [{"id": "YWNjMQ", "username": "u-ann", "email": "u-ann@example.org",
  "collections": [{"id": "C1", "title": "Work", "items": [], "subCollections": [
    {"id": "C2", "title": "Mail", "items": [{"item": "aXRlbTE"}]}]}],
  "items": [
   {"id": "aXRlbTE", "creationAt": -11644473600, "modifiedAt": 1705228800, "title": "t-Mail",
    "subtitle": "t-sub", "favorite": true, "tags": ["t-tag"],
    "scope": {"urls": ["t-https://mail.example.org", "t-https://m.example.org"],
     "androidApps": [{"bundleId": "t-com.example"}]},
    "credentials": [
     {"type": "basic-auth", "username": {"fieldType": "string", "value": "t-ann"},
      "password": {"fieldType": "concealed-string", "value": "t-p\"1"}},
     {"type": "totp", "secret": "t-JBSWY3DPEHPK3PXP", "period": 30, "algorithm": "t-sha1"},
     {"type": "note", "content": {"fieldType": "string", "value": "t-two\nlines"}},
     {"type": "passkey", "rpId": "u-rp", "key": "u-key"},
     {"type": "custom-fields", "label": "u-more", "fields": [
      {"id": null, "fieldType": "concealed-string", "label": "code", "value": "t-9876"},
      {"id": "", "fieldType": "email", "label": "mail", "value": "t-a@b"}]}]},
   {"id": "aXRlbTI", "title": "t-Card", "credentials": [
     {"type": "credit-card", "number": {"fieldType": "concealed-string", "value": "t-4111"},
      "fullName": {"fieldType": "string", "value": "t-Ann Example"},
      "cardType": {"fieldType": "string", "value": "t-Visa"},
      "verificationNumber": {"fieldType": "concealed-string", "value": "t-123"},
      "expiryDate": {"fieldType": "year-month", "value": "2027-03"}},
     {"type": "custom-fields", "id": "ZGV0YWlscw", "label": "u-details", "fields": [
      {"id": "cGlu", "fieldType": "string", "label": "PIN", "value": "t-9999"}]}]},
   {"id": "3", "title": "t-Note", "credentials": [{"type": "note", "content": "t-text"}]},
   {"id": "4", "title": "t-Wifi", "credentials": [
     {"type": "wifi", "ssid": {"fieldType": "string", "value": "t-net"},
      "passphrase": {"fieldType": "concealed-string", "value": "t-phrase"}},
     {"type": "note", "content": {"value": "t-wifi note"}}]},
   {"id": "5", "title": "t-Future", "credentials": [{"type": "future-credential", "x": "t-y"}]}
  ]}]})";

TEST(CredentialExchangeJSONTest, readsEveryKind) {
    const Reading reading = read(vault);
    const Outcome expected = {
        .passwords = {{.username = "t-ann",
                       .password = "t-p\"1",
                       .url = "t-https://mail.example.org",
                       .service = "t-Mail",
                       .note = "t-two\nlines"}},
        .notes = {{.color = {}, .title = "t-Note", .content = "t-text"},
                  {.color = {},
                   .title = "t-Wifi",
                   .content = "ssid: t-net\npassphrase: t-phrase\n\nt-wifi note"},
                  {.color = {}, .title = "t-Future", .content = "x: t-y"}},
        .cards = {{.cardNumber = "t-4111",
                   .custName = "t-Card",
                   .holderName = "t-Ann Example",
                   .cvv = "t-123",
                   .pin = "t-9999",
                   .note = "",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "customText subtitle=t-sub\n"
                                    "furtherURL urls=t-https://m.example.org\n"
                                    "customText bundleId=t-com.example\n"
                                    "oneTimePassword totp=t-JBSWY3DPEHPK3PXP\n"
                                    "customText period=30\n"
                                    "customText algorithm=t-sha1\n"
                                    "customSecret code=t-9876\n"
                                    "email mail=t-a@b\n"
                                    "folder collections=Work/Mail\n"
                                    "createdAt creationAt=-11644473600\n"
                                    "modifiedAt modifiedAt=1705228800\n"
                                    "favourite favorite=true\n"
                                    "tag tags=t-tag\n");
    EXPECT_EQ(reading.extras.back(), "customText cardType=t-Visa\n");
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Wi-Fi"), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "unknown kind"), 1);
    EXPECT_EQ(reading.unread("passkeys"), 1);
    EXPECT_EQ(reading.unread("titles of sections"), 2);
    EXPECT_EQ(reading.unread("collections without entries of their own"), 1);
    EXPECT_EQ(reading.unread("name and e-mail address of the account"), 1);
}

TEST(CredentialExchangeJSONTest, losesOneValueForOneOfAnotherType) {
    expectSingleLosses(Layout::credentialExchangeJSON, vault);
}

TEST(CredentialExchangeJSONTest, makesTwoRecordsOfALoginWithACard) {
    const Reading reading = read(item(
        R"({"type":"credit-card","number":{"value":"4111"}},)"
        R"({"type":"basic-auth","username":{"value":"ann"}},{"type":"note","content":"n"},)"
        R"({"type":"custom-fields","fields":[{"id":"cGlu","value":"1"},{"label":"l","value":"2"}]})"));
    EXPECT_EQ(reading.records.passwords.at(0).username, "ann");
    EXPECT_EQ(reading.records.passwords.at(0).note, "n");
    EXPECT_EQ(reading.records.cards.at(0).cardNumber, "4111");
    EXPECT_EQ(reading.records.cards.at(0).pin, "1");
    EXPECT_EQ(reading.extras.at(0), "customText l=2\n");
    EXPECT_EQ(reading.report.recordCount(), 2);
}

TEST(CredentialExchangeJSONTest, readsAnAccountAloneAndAnArchive) {
    if (!isRead(Layout::bitwardenZip)) {
        GTEST_SKIP() << "archives are left out";
    }
    const std::string account = item(R"({"type":"basic-auth","username":{"value":"u"}})");
    const Outcome records = read(account).records;
    EXPECT_EQ(records.passwords.at(0).username, "u");
    EXPECT_EQ(read(zipOf({{.name = "cxf.json", .contents = account}})).records, records);
    EXPECT_EQ(read(zipOf({{.name = "a.json"}, {.name = "b.json"}})).report.failure().reason,
              FailureReason::wrongShape);
    EXPECT_EQ(read(zipOf({{.name = "CXP-Export/index.jwe"}})).report.failure().reason,
              FailureReason::encrypted);
}

TEST(CredentialExchangeJSONTest, readsFieldsOfOtherTypesAndWhatStandsAlone) {
    const Reading card = read(
        item(R"({"type":"credit-card","expiryDate":{"fieldType":"string","value":"03/2027"}})"));
    EXPECT_EQ(card.records.cards.at(0).expirationYear, 2027);
    EXPECT_EQ(read(item(R"({"type":"generated-password","password":"p"})"))
                  .records.passwords.at(0)
                  .password,
              "p");
    EXPECT_EQ(read(item(R"({"type":"passkey","rpId":"r","username":"u","key":"k"})"))
                  .records.notes.at(0)
                  .content,
              "rpId: r\nusername: u");
    EXPECT_EQ(read(item(R"({"type":"totp","secret":"S"})")).extras.at(0),
              "oneTimePassword totp=S\n");
}

TEST(CredentialExchangeJSONTest, readsEveryCredentialOfAnItem) {
    const Reading reading = read(R"({"items":[{"id":"a","title":"t-x","new":"u-1","extensions":[
  {"name":"u-2"}],
 "scope":{"urls":["t-adobe.com"],"new":"u-3","androidApps":[
   {"bundleId":"t-app","certificate":{"fingerprint":"u-4"},"name":"t-name"}]},
 "credentials":[
  {"type":"note","content":"t-one"},{"type":"note","content":{"value":"t-two"}},
  {"type":"basic-auth","username":null,"password":"t-pw","extensions":[{"name":"u-5"}]},
  {"type":"basic-auth","username":"t-ann"},
  {"type":"basic-auth","username":{"fieldType":"string","value":"t-bob"}},
  {"type":"ssh-key","keyType":"t-ed25519","privateKey":"t-private",
   "expiryDate":{"fieldType":"date","value":"t-2027-03-01","extensions":[{"name":"u-6"}]}},
  {"type":"custom-fields","label":"","extensions":[{"name":"u-7"}],"fields":[
   {"label":"on","fieldType":"boolean","value":"t-true"},
   {"label":"code","fieldType":"string","value":"otpauth://t-otp"},
   {"id":"cGlu","label":"PIN","fieldType":"concealed-string","value":"t-9"}]},
  {"type":"file","id":"u-8","name":"u-9"},
  {"type":"item-reference","reference":{"item":"u-10"}}]}]})");
    const Outcome expected = {.passwords = {{.username = "t-ann",
                                             .password = "t-pw",
                                             .url = "t-adobe.com",
                                             .service = "t-x",
                                             .color = {},
                                             .note = "t-one"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "customText bundleId=t-app\ncustomText name=t-name\n"
                                    "customText note=t-two\n"
                                    "furtherUserName username=t-bob\n"
                                    "customText keyType=t-ed25519\n"
                                    "customSecret privateKey=t-private\n"
                                    "customText expiryDate=t-2027-03-01\n"
                                    "customText on=t-true\n"
                                    "oneTimePassword code=otpauth://t-otp\n"
                                    "customSecret PIN=t-9\n");
    for (const std::string_view part : {"other members", "extensions", "identifiers", "attachments",
                                        "references to other items"}) {
        EXPECT_EQ(reading.unread(part), 1) << part;
    }
    EXPECT_EQ(read(item(R"({"type":"api-key","key":"k"},{"type":"custom-fields"})"))
                  .records.notes.at(0)
                  .content,
              "key: k");
}

TEST(CredentialExchangeJSONTest, givesTheAddressesToTheLoginBesideACard) {
    const Reading reading =
        read(R"({"items":[{"title":"x","scope":{"urls":["https://a.example"]},"credentials":[)"
             R"({"type":"basic-auth","password":"p"},{"type":"credit-card","number":"4"},)"
             R"({"type":"custom-fields","label":"more","extensions":[1],"fields":[5]}]}]})");
    EXPECT_EQ(reading.records.passwords.at(0).url, "https://a.example");
    EXPECT_EQ(reading.records.cards.at(0).cardNumber, "4");
    EXPECT_EQ(reading.extras, (std::vector<std::string>{"", ""}));
    EXPECT_EQ(reading.unread("titles of sections"), 1);
}

TEST(CredentialExchangeJSONTest, leavesOutOfAPathWhatIsVeryLong) {
    const Reading reading = read(R"({"collections":[{"title":")" + std::string(2000, 'x') +
                                 R"(","subCollections":[{"title":"b","items":[{"item":"a"}]}]}],)" +
                                 item("").substr(1));
    EXPECT_EQ(reading.extras.at(0), "folder collections=b\n");
}

TEST(CredentialExchangeJSONTest, tellsOfFurtherCollections) {
    std::string collections;
    for (int number = 0; number < 65; ++number) {
        collections += (number > 0 ? "," : "") + (R"({"title":"c)" + std::to_string(number)) +
                       R"(","items":[{"item":"a"}]})";
    }
    const Reading reading = read(R"({"collections":[)" + collections + "]," + item("").substr(1));
    EXPECT_EQ(std::ranges::count(reading.extras.at(0), '\n'), 64);
    EXPECT_EQ(reading.unread("further collections"), 1);
    EXPECT_EQ(readingOf(Layout::credentialExchangeJSON, ExportFile::atPath("/nowhere/x.json"))
                  .report.failure()
                  .reason,
              FailureReason::missing);
}

} // namespace

} // namespace Rellinor::Tests
