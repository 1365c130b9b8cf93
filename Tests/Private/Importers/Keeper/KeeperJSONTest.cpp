#include "Private/Importers/Keeper/KeeperJSON.hpp"

#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/JSONLosses.hpp"
#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::string_view vault = R"({
 "shared_folders": [{"path": "Team", "uid": "u-folder", "manage_users": true}],
 "records": [
  {"uid": "u-1", "title": "t-Mail", "$type": "login", "login": "t-ann", "password": "t-pw",
   "login_url": "t-https://a", "notes": "t-note", "last_modified": 1700000000,
   "custom_fields": {"$oneTimeCode::1": "t-otp", "$secret:answer:1": "t-answer",
    "$text:hint": "t-hint", "TFC:Keeper": "t-otp2", "plain": "t-plain", "$url::2": "t-https://m",
    "$date:day:1": 1700000000000, "$email::1": "t-a@b",
    "$securityQuestion::1": [{"question": "t-q", "answer": "t-a"}]},
   "folders": [{"folder": "t-A\\B"}, {"shared_folder": "t-Team", "can_edit": true}]},
  {"title": "t-Card", "$type": "bankCard", "notes": "t-blue",
   "custom_fields": {"$paymentCard::1": {"cardNumber": "t-4111", "cardExpirationDate": "03/2027",
     "cardSecurityCode": "t-123"}, "$text:cardholderName:1": "t-Ann Example", "$pinCode": "t-9999"}},
  {"title": "t-Note", "$type": "encryptedNotes", "notes": "t-more",
   "custom_fields": {"$note::1": "t-text"}},
  {"title": "t-Note 2", "$type": "encryptedNotes", "notes": "t-text 2"},
  {"title": "t-Bank", "$type": "bankAccount", "notes": "t-bank note",
   "custom_fields": {"$bankAccount::1": {"accountType": "t-checking", "otherType": ""}}},
  {"title": "t-Old", "login": "t-bob", "password": "t-pw2"}
 ]})";

TEST(KeeperJSONTest, readsEveryKind) {
    const Reading reading = readingOf(Layout::keeperJSON, vault);
    const Outcome expected = {
        .passwords = {{.username = "t-ann",
                       .password = "t-pw",
                       .url = "t-https://a",
                       .service = "t-Mail",
                       .note = "t-note"},
                      {.username = "t-bob", .password = "t-pw2", .url = "", .service = "t-Old"}},
        .notes = {{.color = {}, .title = "t-Note", .content = "t-text"},
                  {.color = {}, .title = "t-Note 2", .content = "t-text 2"},
                  {.color = {},
                   .title = "t-Bank",
                   .content = "bankAccount accountType: t-checking\n\nt-bank note"}},
        .cards = {{.cardNumber = "t-4111",
                   .custName = "t-Card",
                   .holderName = "t-Ann Example",
                   .cvv = "t-123",
                   .pin = "t-9999",
                   .note = "t-blue",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "oneTimePassword oneTimeCode=t-otp\n"
                                    "customSecret answer=t-answer\n"
                                    "customText hint=t-hint\n"
                                    "oneTimePassword TFC:Keeper=t-otp2\n"
                                    "customText plain=t-plain\n"
                                    "furtherURL url=t-https://m\n"
                                    "customText day=1700000000000\n"
                                    "email email=t-a@b\n"
                                    "customSecret securityQuestion question=t-q\n"
                                    "customSecret securityQuestion answer=t-a\n"
                                    "modifiedAt last_modified=1700000000\n"
                                    "folder folder=t-A\\B\n"
                                    "folder shared_folder=t-Team\n");
    EXPECT_EQ(reading.extras.at(2), "customText notes=t-more\n");
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Bank Account"), 1);
    EXPECT_EQ(reading.unread("permissions of shared folders"), 1);
    EXPECT_EQ(reading.unread("identifiers"), 1);
}

TEST(KeeperJSONTest, losesOneValueForOneOfAnotherType) {
    expectSingleLosses(Layout::keeperJSON, vault);
}

TEST(KeeperJSONTest, readsNamesAndValuesOfCustomFields) {
    const Reading reading = readingOf(Layout::keeperJSON, R"({"records":[
 {"$type":"encryptedNotes","title":"t-note","new":"u-1",
  "custom_fields":{"$note":"t-one","$note::2":"t-two","$text:a:b":"t-three","$text:a:":"t-four",
   "$text:a:1:2":"t-five","$text":6,
   "$passkey::1":{"privateKey":"u-2"}}},
 {"$type":"bankCard","title":"t-card","custom_fields":{"$paymentCard":[
   {"cardNumber":"t-4111","cardExpirationDate":"03/2027","brand":"t-Visa"}]}},
 {"$type":"databaseCredentials","title":"t-base","login":"t-root","password":""},
 {"$type":"wifiCredentials","title":"t-net","custom_fields":{
   "$paymentCard":{"cardNumber":"t-4"},"":{"a":"t-5"},
   "a name that is longer than all that anybody would write beside a value":{"b":"t-6"}}},
 {"$type":"login","title":"t-login","custom_fields":{"$login::1":"t-ann"}}]})");
    const Outcome expected = {
        .passwords = {{.username = "t-ann", .password = "", .url = "", .service = "t-login"}},
        .notes = {{.color = {}, .title = "t-note", .content = "t-one"},
                  {.color = {}, .title = "t-base", .content = "login: t-root"},
                  {.color = {},
                   .title = "t-net",
                   .content = "paymentCard cardNumber: t-4\na: t-5\nb: t-6"}},
        .cards = {{.cardNumber = "t-4111",
                   .custName = "t-card",
                   .holderName = "",
                   .cvv = "",
                   .pin = "",
                   .note = "",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(1), "customText note=t-two\ncustomText a:b=t-three\n"
                                    "customText a:=t-four\ncustomText a:1=t-five\n"
                                    "customText text=6\n");
    EXPECT_EQ(reading.extras.back(), "customText brand=t-Visa\n");
    EXPECT_EQ(reading.unread("other members"), 1);
    EXPECT_EQ(reading.unread("passkeys"), 1);
}

} // namespace

} // namespace Rellinor::Tests
