#include "Private/Importers/ProtonPass/ProtonPassJSON.hpp"

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
    return readingOf(Layout::protonPassJSON, text);
}

std::string item(std::string_view data, std::string_view members = "") {
    return R"({"version":"1.31.0","vaults":{"S":{"items":[{"data":{)" + std::string(data) + "}" +
           std::string(members) + "}]}}}";
}

constexpr std::string_view vault = R"({
 "version": "1.31.0", "userId": "u-user", "encrypted": false,
 "vaults": {"u-share": {"name": "Personal", "description": "u-mine",
  "display": {"color": 0, "icon": 0},
  "items": [
   {"itemId": "u-item", "shareId": "u-share", "state": 1, "aliasEmail": null,
    "contentFormatVersion": 6, "createTime": 1714557600, "modifyTime": 1714557601, "pinned": true,
    "files": ["u-file"],
    "data": {"metadata": {"name": "t-Mail", "note": "t-note", "itemUuid": "u-uuid"},
     "extraFields": [
      {"fieldName": "hint", "type": "text", "data": {"content": "t-blue"}},
      {"fieldName": "code", "type": "hidden", "data": {"content": "t-9876"}},
      {"fieldName": "other", "type": "totp", "data": {"totpUri": "t-otpauth2"}},
      {"fieldName": "day", "type": "timestamp", "data": {"timestamp": "t-2024-01-01"}}],
     "type": "login",
     "content": {"itemEmail": "t-ann@example.org", "itemUsername": "t-ann", "password": "t-pw",
      "urls": ["t-https://mail.example.org", "t-https://m.example.org"],
      "autofillUrls": [{"url": "t-https://mail.example.org", "mode": 1},
                       {"url": "t-https://new.example.org", "mode": 0}],
      "totpUri": "t-otpauth1", "passkeys": [{"keyId": "u-key"}]},
     "platformSpecific": {"android": {"allowedApps": ["u-app"]}}}},
   {"state": 1, "createTime": 1, "modifyTime": 2,
    "data": {"metadata": {"name": "t-Note", "note": "t-text"}, "extraFields": [], "type": "note",
     "content": {}}},
   {"state": 1, "createTime": 1, "modifyTime": 2,
    "data": {"metadata": {"name": "t-Card", "note": "t-card note"}, "extraFields": [],
     "type": "creditCard",
     "content": {"cardholderName": "t-Ann Example", "cardType": 1, "number": "t-4111",
      "verificationNumber": "t-123", "expirationDate": "2027-03", "pin": "t-9999"}}},
   {"state": 1, "aliasEmail": "t-alias@example.org",
    "data": {"metadata": {"name": "t-Alias", "note": ""}, "type": "alias", "content": {}}},
   {"state": 1,
    "data": {"metadata": {"name": "t-Home", "note": "t-home note"}, "type": "custom",
     "content": {"sections": [{"sectionName": "u-section", "sectionFields": [
      {"fieldName": "router", "type": "hidden", "data": {"content": "t-router"}}]}]}}}
  ]}}})";

TEST(ProtonPassJSONTest, readsEveryKind) {
    const Reading reading = read(vault);
    const Outcome expected = {
        .passwords = {{.username = "t-ann",
                       .password = "t-pw",
                       .url = "t-https://mail.example.org",
                       .service = "t-Mail",
                       .note = "t-note"}},
        .notes = {{.color = {}, .title = "t-Note", .content = "t-text"},
                  {.color = {}, .title = "t-Alias", .content = "aliasEmail: t-alias@example.org"},
                  {.color = {}, .title = "t-Home", .content = "router: t-router\n\nt-home note"}},
        .cards = {{.cardNumber = "t-4111",
                   .custName = "t-Card",
                   .holderName = "t-Ann Example",
                   .cvv = "t-123",
                   .pin = "t-9999",
                   .note = "t-card note",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "customText hint=t-blue\n"
                                    "customSecret code=t-9876\n"
                                    "oneTimePassword other=t-otpauth2\n"
                                    "customText day=t-2024-01-01\n"
                                    "email itemEmail=t-ann@example.org\n"
                                    "furtherURL urls=t-https://m.example.org\n"
                                    "furtherURL url=t-https://new.example.org\n"
                                    "oneTimePassword totpUri=t-otpauth1\n"
                                    "folder vault=Personal\n"
                                    "createdAt createTime=1714557600\n"
                                    "modifiedAt modifyTime=1714557601\n"
                                    "favourite pinned=true\n");
    EXPECT_EQ(reading.extras.back(), "customText cardType=1\n"
                                     "folder vault=Personal\n"
                                     "createdAt createTime=1\n"
                                     "modifiedAt modifyTime=2\n");
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Alias"), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Custom item"), 1);
    for (const std::string_view part :
         {"identifiers", "attachments", "passkeys", "settings of the product", "titles of sections",
          "descriptions of vaults"}) {
        EXPECT_EQ(reading.unread(part), 1) << part;
    }
}

TEST(ProtonPassJSONTest, losesOneValueForOneOfAnotherType) {
    expectSingleLosses(Layout::protonPassJSON, vault);
}

TEST(ProtonPassJSONTest, takesTheEmailAddressForAMissingUserName) {
    const Reading reading =
        read(item(R"("type":"login","content":{"itemEmail":"a@b","itemUsername":""})"));
    EXPECT_EQ(reading.records.passwords.at(0).username, "a@b");
    EXPECT_EQ(reading.extras.at(0), "");
}

TEST(ProtonPassJSONTest, readsDatesOfAllVersions) {
    const auto dateOf = [](std::string_view date) {
        const Reading reading =
            read(item(R"("metadata":{"name":"x"},"type":"creditCard","content":{)"
                      R"("expirationDate":")" +
                      std::string(date) + "\"}"));
        const Card& card = reading.records.cards.at(0);
        return std::to_string(card.expirationMonth) + "/" + std::to_string(card.expirationYear) +
               " " + reading.extras.at(0);
    };
    EXPECT_EQ(dateOf("2027-03"), "3/2027 ");
    EXPECT_EQ(dateOf("032027"), "3/2027 ");
    EXPECT_EQ(dateOf("122030"), "12/2030 ");
    EXPECT_EQ(dateOf("203012"), "12/2030 ");
    EXPECT_EQ(dateOf(""), "0/0 ");
    EXPECT_EQ(dateOf("soon"), "0/0 customText expirationDate=soon\n");
}

TEST(ProtonPassJSONTest, leavesOutTheTrashAndRefusesWhatIsEncrypted) {
    EXPECT_EQ(read(item(R"("type":"login","metadata":{"name":"x"})", R"(,"state":2)"))
                  .leftOut(LeftOutReason::trashed),
              1);
    EXPECT_EQ(read(R"({"encrypted":true,"vaults":{}})").report.failure().reason,
              FailureReason::encrypted);
    if (!isRead(Layout::protonPassZip)) {
        GTEST_SKIP() << "archives are left out";
    }
    const auto archiveOf = [](std::string_view name) {
        return readingOf(Layout::protonPassZip, zipOf({{.name = name, .contents = vault}}));
    };
    EXPECT_EQ(archiveOf("Proton Pass/data.json").records, read(vault).records);
    EXPECT_EQ(archiveOf("Proton Pass/data.pgp").report.failure().reason, FailureReason::encrypted);
}

TEST(ProtonPassJSONTest, readsTheFieldsOfAnIdentityAndOfSections) {
    const auto field = [](std::string_view name) {
        return R"([{"fieldName":")" + std::string(name) +
               R"(","type":"text","data":{"content":"t-)" + std::string(name) + R"("}}])";
    };
    const Reading reading = read(item(
        R"("type":"identity","new":"u-1","metadata":{"name":"t-x","new":"u-4"},"content":{"fullName":"t-Ann",)"
        R"("extraPersonalDetails":)" +
            field("a") + R"(,"extraAddressDetails":)" + field("b") + R"(,"extraContactDetails":)" +
            field("c") + R"(,"extraWorkDetails":)" + field("d") +
            R"(,"extraSections":[{"sectionName":"","new":"u-2","sectionFields":)" + field("e") +
            "}]}",
        R"(,"new":"u-3")"));
    EXPECT_EQ(reading.records.notes.at(0).content,
              "fullName: t-Ann\na: t-a\nb: t-b\nc: t-c\nd: t-d\ne: t-e");
    EXPECT_EQ(reading.unread("other members"), 1);
}

} // namespace

} // namespace Rellinor::Tests
