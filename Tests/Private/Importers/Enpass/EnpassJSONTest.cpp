#include "Private/Importers/Enpass/EnpassJSON.hpp"

#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/JSONLosses.hpp"
#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

Reading read(std::string_view text) {
    return readingOf(Layout::enpassJSON, text);
}

constexpr std::string_view vault = R"({
 "folders": [
  {"icon": "1", "parent_uuid": "", "title": "Work", "updated_at": 1, "uuid": "F1"},
  {"icon": "1", "parent_uuid": "F1", "title": "Mail", "updated_at": 1, "uuid": "F2"}],
 "items": [
  {"archived": 1, "auto_submit": 1, "category": "login", "createdAt": 1700000000, "favorite": 1,
   "fields": [
    {"deleted": 0, "label": "Username", "order": 1, "sensitive": 0, "type": "username",
     "value": "t-ann"},
    {"deleted": 0, "label": "E-mail", "sensitive": 0, "type": "email", "value": "t-a@example.org"},
    {"deleted": 0, "label": "Password", "sensitive": 1, "type": "password", "value": "t-pw",
     "history": [{"value": "u-old"}]},
    {"deleted": 0, "label": "Website", "sensitive": 0, "type": "url", "value": "t-https://a"},
    {"deleted": 0, "label": "Mobile", "sensitive": 0, "type": "url", "value": "t-https://m"},
    {"deleted": 0, "label": "Code", "sensitive": 1, "type": "totp", "value": "t-otp"},
    {"deleted": 0, "label": "More", "sensitive": 0, "type": "section", "value": ""},
    {"deleted": 0, "label": "Answer", "sensitive": 1, "type": "text", "value": "t-answer"},
    {"deleted": 0, "label": "Empty", "sensitive": 0, "type": "text", "value": ""}],
   "folders": ["F2"], "icon": {"fav": "u-icon"}, "note": "t-note", "subtitle": "u-ann",
   "template_type": "login.default", "title": "t-Mail", "trashed": 0, "updated_at": 1700000001,
   "uuid": "u-uuid"},
  {"category": "creditcard", "title": "t-Card", "note": "t-blue", "trashed": 0, "fields": [
    {"label": "Holder", "type": "ccName", "value": "t-Ann Example"},
    {"label": "Number", "type": "ccNumber", "value": "t-4111"},
    {"label": "CVC", "type": "ccCvc", "value": "t-123"},
    {"label": "PIN", "type": "ccPin", "value": "t-9999"},
    {"label": "Expiry", "type": "ccExpiry", "value": "03/27"},
    {"label": "Type", "type": "ccType", "value": "t-Visa"}]},
  {"category": "note", "title": "t-Note", "note": "t-text"},
  {"category": "identity", "title": "t-Me", "note": "t-me", "fields": [
    {"label": "First name", "type": "text", "value": "t-Ann"}]},
  {"category": "computer", "title": "t-Router", "fields": [
    {"label": "User", "type": "username", "value": "admin"},
    {"label": "Password", "type": "password", "value": "nimda"}]}
 ]})";

TEST(EnpassJSONTest, readsEveryKind) {
    const Reading reading = read(vault);
    const Outcome expected = {
        .passwords = {{.username = "t-ann",
                       .password = "t-pw",
                       .url = "t-https://a",
                       .service = "t-Mail",
                       .note = "t-note"},
                      {.username = "admin", .password = "nimda", .url = "", .service = "t-Router"}},
        .notes = {{.color = {}, .title = "t-Note", .content = "t-text"},
                  {.color = {}, .title = "t-Me", .content = "First name: t-Ann\n\nt-me"}},
        .cards = {{.cardNumber = "t-4111",
                   .custName = "t-Card",
                   .holderName = "t-Ann Example",
                   .cvv = "t-123",
                   .pin = "t-9999",
                   .note = "t-blue",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "email E-mail=t-a@example.org\n"
                                    "furtherURL Mobile=t-https://m\n"
                                    "oneTimePassword Code=t-otp\n"
                                    "customSecret Answer=t-answer\n"
                                    "archived archived=true\n"
                                    "createdAt createdAt=1700000000\n"
                                    "favourite favorite=true\n"
                                    "folder folders=Work/Mail\n"
                                    "modifiedAt updated_at=1700000001\n");
    EXPECT_EQ(reading.extras.back(), "customText Type=t-Visa\n");
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Identity"), 1);
    for (const std::string_view part :
         {"password history", "titles of sections", "subtitles", "identifiers", "icons and colours",
          "folders without entries of their own"}) {
        EXPECT_EQ(reading.unread(part), 1) << part;
    }
}

TEST(EnpassJSONTest, losesOneValueForOneOfAnotherType) {
    expectSingleLosses(Layout::enpassJSON, vault);
}

TEST(EnpassJSONTest, leavesOutTheTrashAndDeletedFields) {
    const Reading reading =
        read(R"({"items":[{"trashed":1,"title":"x"},{"category":"login","title":"y","fields":[)"
             R"({"deleted":1,"type":"password","value":"old"}]}]})");
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 1);
    EXPECT_EQ(reading.records.passwords.at(0).password, "");
    EXPECT_EQ(reading.unread("deleted fields"), 1);
}

TEST(EnpassJSONTest, endsWhereFoldersStandInEachOther) {
    const Reading reading = read(R"({"folders":[{"uuid":"A","parent_uuid":"B","title":"a"},)"
                                 R"({"uuid":"B","parent_uuid":"A","title":"b"}],)"
                                 R"("items":[{"category":"note","title":"x","folders":["A"]}]})");
    EXPECT_TRUE(reading.extras.at(0).ends_with("b/a\n"));
}

TEST(EnpassJSONTest, readsFieldsOfEveryType) {
    const Reading reading = read(R"({"items":[
 {"category":"login","title":"t-x","new":"u-1","trashed":false,"fields":[
  {"type":"email","label":"mail","value":"t-a@b"},
  {"type":"phone","label":"call","value":"t-555"},
  {"type":"password","label":"second","value":""},
  {"type":"pin","label":"door","value":"t-17"},
  {"type":"ccTxnpassword","label":"txn","value":"t-18"},
  {"type":"ccPin","label":"card pin","value":"t-19"},
  {"type":"ccCvc","label":"card code","value":"t-20"},
  {"type":"section","label":"more","value":"t-21"}]},
 {"category":"computer","title":"t-y","fields":[
  {"type":"username","label":"user","value":"t-root"},
  {"type":"password","label":"old","value":"u-2","deleted":true},
  {"type":"password","label":"pass","value":""}]},
 {"category":"spaceship","title":"t-z","fields":[{"label":"hull","value":"t-red"}]},
 {"category":"login","title":"u-3","trashed":true}]})");
    const Outcome expected = {
        .passwords = {{.username = "t-a@b", .password = "", .url = "", .service = "t-x"}},
        .notes = {{.color = {}, .title = "t-y", .content = "user: t-root"},
                  {.color = {}, .title = "t-z", .content = "hull: t-red"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0),
              "phone call=t-555\ncustomSecret door=t-17\ncustomSecret txn=t-18\n"
              "customSecret card pin=t-19\ncustomSecret card code=t-20\ncustomText more=t-21\n");
    EXPECT_EQ(reading.unread("other members"), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "unknown kind"), 1);
    EXPECT_EQ(reading.found(FindingKind::valueOfOtherType), 0);
}

} // namespace

} // namespace Rellinor::Tests
