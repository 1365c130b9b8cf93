#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<std::string>;

TEST(DashlaneCSVTest, readsCredentials) {
    const Reading reading =
        readingOf("username,username2,username3,title,password,note,url,category,otpUrl\r\n"
                  "ann@example.org,ann,,Mail,\"p,1\",,https://mail.example.org,\"Work, Mail\","
                  "otpauth://totp/?secret=jbswy3dpehpk3pxp\r\n"
                  ",bob,robert,,two,a note,,,");
    const Outcome expected = {.passwords = {{.username = "ann@example.org",
                                             .password = "p,1",
                                             .url = "https://mail.example.org",
                                             .service = "Mail"},
                                            {.username = "bob",
                                             .password = "two",
                                             .url = "",
                                             .service = {},
                                             .color = {},
                                             .note = "a note"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"furtherUserName username2=ann\nfolder category=Work, Mail\n"
                      "oneTimePassword otpUrl=otpauth://totp/?secret=jbswy3dpehpk3pxp\n",
                      "furtherUserName username3=robert\n"}));
    EXPECT_EQ(reading.report.layout(), Layout::dashlaneCSV);
}

TEST(DashlaneCSVTest, readsNotes) {
    const Outcome expected = {.notes = {{.color = {}, .title = "T", .content = "one\ntwo"}}};
    EXPECT_EQ(readingOf("title,note\nT,\"one\ntwo\"\n").records, expected);
    EXPECT_EQ(readingOf("title,note,category\nT,\"one\ntwo\",Home").extras,
              Extras{"folder category=Home\n"});
}

TEST(DashlaneCSVTest, readsPayments) {
    const Reading reading =
        readingOf("type,account_name,account_holder,cc_number,code,expiration_month,"
                  "expiration_year,routing_number,account_number,country,issuing_bank,note,name\n"
                  "bank,Giro,Ann Example,,,,,EXAMPLEXXX,DE02,DE,Example Bank,own note,\n"
                  "payment_card,Ann Example,,4111111111111111,123,03,2027,,,US,,blue,Main card\n"
                  "credit_card,,,4,,3,soon,,,,,,Bob\n"
                  "paypal,x,,,,,,,,,,,P\n");
    const Outcome expected = {
        .notes = {{.color = {},
                   .title = "Giro",
                   .content = "account_holder: Ann Example\nrouting_number: EXAMPLEXXX\n"
                              "account_number: DE02\ncountry: DE\nissuing_bank: Example Bank\n\n"
                              "own note"},
                  {.color = {}, .title = "P", .content = "type: paypal\naccount_name: x"}},
        .cards = {{.cardNumber = "4111111111111111",
                   .custName = "Main card",
                   .holderName = "Ann Example",
                   .cvv = "123",
                   .pin = "",
                   .note = "blue",
                   .expirationMonth = 3,
                   .expirationYear = 2027},
                  {.cardNumber = "4",
                   .custName = "Bob",
                   .holderName = "Bob",
                   .cvv = "",
                   .pin = "",
                   .note = "",
                   .expirationMonth = 3}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"", "", "customText country=US\n", "customText expiration_year=soon\n"}));
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "bank"), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "unknown kind"), 1);
    EXPECT_EQ(reading.found(FindingKind::unreadableDate, "expiration_year"), 1);
}

TEST(DashlaneCSVTest, readsDocumentsPersonsAndNetworksAsNotes) {
    const Reading documents =
        readingOf("type,number,name,issue_date,expiration_date,place_of_issue,state\n"
                  "passport,X1,Ann Example,2020-1-2,2030-1-2,Nowhere,\n");
    const Outcome expectedDocuments = {
        .notes = {{.color = {},
                   .title = "Ann Example",
                   .content = "number: X1\nissue_date: 2020-1-2\nexpiration_date: 2030-1-2\n"
                              "place_of_issue: Nowhere"}}};
    EXPECT_EQ(documents.records, expectedDocuments);
    EXPECT_EQ(documents.found(FindingKind::arrivedAsNote, "passport"), 1);

    const Reading persons = readingOf(
        "type,title,first_name,middle_name,last_name,login,date_of_birth,place_of_birth,email,"
        "email_type,item_name,phone_number,address,country,state,city,zip,address_recipient,"
        "address_building,address_apartment,address_floor,address_door_code,job_title,url\n"
        "name,MRS,Ann,,Example,,2000-01-01,,,,,,,,,,,,,,,,,\n"
        "email,,,,,,,,a@example.org,personal,Mine,,,,,,,,,,,,,\n");
    const Outcome expectedPersons = {
        .notes = {{.color = {},
                   .title = "",
                   .content = "title: MRS\nfirst_name: Ann\nlast_name: Example\n"
                              "date_of_birth: 2000-01-01"},
                  {.color = {},
                   .title = "Mine",
                   .content = "email: a@example.org\nemail_type: personal"}}};
    EXPECT_EQ(persons.records, expectedPersons);
    EXPECT_EQ(persons.found(FindingKind::arrivedAsNote, "email"), 1);

    const Reading networks = readingOf("ssid,passphrase,name,note,hidden,encription_type\n"
                                       "Kranich,secret,Home,in the hall,false,WPA2\n");
    const Outcome expectedNetworks = {
        .notes = {{.color = {},
                   .title = "Home",
                   .content = "ssid: Kranich\npassphrase: secret\nhidden: false\n"
                              "encription_type: WPA2\n\nin the hall"}}};
    EXPECT_EQ(networks.records, expectedNetworks);
    EXPECT_EQ(networks.found(FindingKind::arrivedAsNote, "wifi"), 1);
}

TEST(DashlaneCSVTest, readsOldFilesByPositionIfAskedTo) {
    constexpr std::string_view text =
        "Mail,https://mail.example.org,ann,ann2,\"p,1\",\"two\nlines\"\n"
        "Alarm,0000,on paper\n"
        "Card,Ann Berg,4000,2029,{5e1f0c2a-77b3-4d19-a0c4-0d9e3b6f1a22}\n"
        "Key,,bob,{5e1f0c2a-77b3-4d19-a0c4-0d9e3b6f1a22},\n";
    const Reading reading = readingOf(Layout::dashlanePositionalCSV, text);
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p,1",
                       .url = "https://mail.example.org",
                       .service = "Mail",
                       .color = {},
                       .note = "two\nlines"},
                      {.username = "bob",
                       .password = "{5e1f0c2a-77b3-4d19-a0c4-0d9e3b6f1a22}",
                       .url = "",
                       .service = "Key"}},
        .notes = {{.color = {}, .title = "Card", .content = "Ann Berg\n4000\n2029"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, (Extras{"furtherUserName =ann2\n", "", ""}));
    EXPECT_EQ(reading.leftOut(LeftOutReason::tooFewCells), 1);
    EXPECT_EQ(reading.report.leftOut().front().places.first, std::vector<std::uint64_t>{3});
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "document"), 1);
    EXPECT_EQ(reading.unread("identifier"), 1);
    EXPECT_EQ(readingOf(text).report.failure().reason, FailureReason::unknown);
}

TEST(DashlaneCSVTest, readsWhatLacksItsName) {
    const Reading reading = readingOf(
        "type,account_name,cc_number,code,expiration_month,expiration_year,account_number,"
        "name\n"
        "bank,,,,,,DE02,Giro\n"
        ",Ann,4111,,3, ,,\n");
    const Outcome expected = {
        .notes = {{.color = {}, .title = "Giro", .content = "account_number: DE02"}},
        .cards = {{.cardNumber = "4111",
                   .custName = "",
                   .holderName = "Ann",
                   .cvv = "",
                   .pin = "",
                   .note = "",
                   .expirationMonth = 3}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_TRUE(reading.extras.back().empty());
    const Reading old =
        readingOf(Layout::dashlanePositionalCSV,
                  "{5e1f0c2a-77b3-4d19-a0c4-0d9e3b6f1a22},Card,Ann Berg,4000,2029\n");
    EXPECT_EQ(old.records.notes.at(0).title, "Card");
    EXPECT_EQ(old.records.notes.at(0).content, "Ann Berg\n4000\n2029");
}

TEST(DashlaneCSVTest, takesTheFileOfWhichTheHeaderHasTheMostNames) {
    const Reading reading =
        readingOf("title,note,type,account_name,cc_number,code,expiration_month,expiration_year\n"
                  "more,n,payment_card,Ann,4111,,3,2027\n");
    ASSERT_EQ(reading.records.cards.size(), 1);
    EXPECT_EQ(reading.records.cards[0].note, "n");
    EXPECT_EQ(reading.extras.at(0), "other title=more\n");
}

} // namespace

} // namespace Rellinor::Tests
