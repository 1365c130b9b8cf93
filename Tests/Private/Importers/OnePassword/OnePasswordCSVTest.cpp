#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<std::string>;

TEST(OnePasswordCSVTest, readsVersion8) {
    const Reading reading =
        readingOf("Title,Url,Username,Password,OTPAuth,Favorite,Archived,Tags,Notes\n"
                  "Mail,https://mail.example.org,ann,\"p\"\"1\",otpauth://totp/x,true,false,"
                  "\"home; a,b\",\"two\nlines\"\n"
                  "Old,,,two,,FALSE,true,\"home,work\",\n"
                  "Odd,,,,,maybe,,,\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p\"1",
                       .url = "https://mail.example.org",
                       .service = "Mail",
                       .color = {},
                       .note = "two\nlines"},
                      {.username = "", .password = "two", .url = "", .service = "Old"},
                      {.username = "", .password = "", .url = "", .service = "Odd"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"oneTimePassword OTPAuth=otpauth://totp/x\nfavourite Favorite=true\n"
                      "tag Tags=home\ntag Tags=a,b\n",
                      "archived Archived=true\ntag Tags=home\ntag Tags=work\n",
                      "other Favorite=maybe\n"}));
    EXPECT_EQ(reading.report.layout(), Layout::onePassword8CSV);
}

TEST(OnePasswordCSVTest, readsVersion7ForMac) {
    const Reading reading = readingOf(
        "\"cardholder name(cardholder)\",\"Created Date\",\"expiry date(expiry)\",\"first "
        "name(firstname)\","
        "\"issuing "
        "bank(bank)\",\"Notes\",\"number(ccnum)\",\"Password\",\"PIN(pin)\",\"Scope\",\"Tags\","
        "\"Title\",\"Type\",\"URL\",\"Username\",\"verification number(cvv)\",\n"
        R"(,"17",,,,"two \"n\"",,"p\\1",,"Default","{()"
        "\n"
        R"(    \"Starter Kit\",)"
        "\n    Home\n"
        R"()}","Mail","Login","https://a.example","ann",,)"
        "\n"
        R"("Ann","18","01/2030",,"Bank","blue","4111",,"9876",,"{()"
        "\n"
        R"()}","Main","Credit Card",,,"123",)"
        "\n,,,,,\"text\",,,,,,\"N\",\"Secure Note\",,,,\n"
        ",,,\"Ann\",,\"own\",,,,,,\"I\",\"Identity\",,,,\n"
        ",,,,,,,\"pw\",,,,\"S\",\"Server\",\"ssh://b\",\"root\",,\n"
        ",,,,,,,\"pw\",,,,\"X\",\"Spaceship\",,,,beyond\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p\\1",
                       .url = "https://a.example",
                       .service = "Mail",
                       .color = {},
                       .note = "two \"n\""},
                      {.username = "root", .password = "pw", .url = "ssh://b", .service = "S"}},
        .notes = {{.color = {}, .title = "N", .content = "text"},
                  {.color = {}, .title = "I", .content = "first name: Ann\n\nown"},
                  {.color = {}, .title = "X", .content = "Password: pw\nType: Spaceship\nbeyond"}},
        .cards = {{.cardNumber = "4111",
                   .custName = "Main",
                   .holderName = "Ann",
                   .cvv = "123",
                   .pin = "9876",
                   .note = "blue",
                   .expirationMonth = 1,
                   .expirationYear = 2030}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"createdAt Created Date=17\ntag Tags=Starter Kit\ntag Tags=Home\n", "", "",
                      "", "", "createdAt Created Date=18\ncustomText issuing bank=Bank\n"}));
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Identity"), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "unknown kind"), 1);
    EXPECT_EQ(reading.unread("settings of the product"), 1);
    EXPECT_EQ(reading.report.layout(), Layout::onePassword7MacCSV);
}

TEST(OnePasswordCSVTest, readsChosenColumnsOfVersion7ForMac) {
    const Reading reading = readingOf("Title,Username,Password,URL,Notes,Type,number(ccnum)\n"
                                      "\"A\",\"ann\",\"p\\\"1\",,,\"Login\",\n"
                                      "\"C\",,,,,\"Credit Card\",\"4\"\n");
    EXPECT_EQ(reading.records.passwords.at(0).password, "p\"1");
    EXPECT_EQ(reading.records.cards.at(0).cardNumber, "4");
    EXPECT_EQ(reading.report.layout(), Layout::onePassword7MacCSV);
}

TEST(OnePasswordCSVTest, readsVersion7ForWindows) {
    const Reading reading = readingOf(
        R"("UUID","TITLE","USERNAME","PASSWORD","URL","URLS","EMAIL","MASTER-PASSWORD","ACCOUNT-KEY",)"
        R"("SCOPE","AUTOSUBMIT","TAGS","NOTES","1: CARDHOLDER NAME","2: NUMBER",)"
        R"("3: VERIFICATION NUMBER","4: EXPIRY DATE","SECTION 2: X","X 1: PIN","NAME 1: FIRST NAME")"
        "\n"
        R"("u1","Mail","ann","p\"1","https://a.example","https://a.example, https://b.example","a@b",)"
        R"("","","Default","Default","home","n","","","","","","","")"
        "\n"
        R"("u2","Main","","","","","","","","","","","blue","Ann","4111","123","1/3/1970 12:23 AM",)"
        R"("Details","9876","")"
        "\n"
        R"("u3","Me","","","","","","","","","","","","","","","","","","Ann")"
        "\n"
        R"("u4","N","","","","","","","","","","","text","","","","","","","")"
        "\n"
        R"("u5","P","","","","","","","","","","","","","77","","","","","")"
        "\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p\"1",
                       .url = "https://a.example",
                       .service = "Mail",
                       .color = {},
                       .note = "n"}},
        .notes = {{.color = {}, .title = "Me", .content = "NAME 1: FIRST NAME: Ann"},
                  {.color = {}, .title = "N", .content = "text"},
                  {.color = {}, .title = "P", .content = "2: NUMBER: 77"}},
        .cards = {{.cardNumber = "4111",
                   .custName = "Main",
                   .holderName = "Ann",
                   .cvv = "123",
                   .pin = "9876",
                   .note = "blue"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"furtherURL URLS=https://b.example\nemail EMAIL=a@b\ntag TAGS=home\n", "", "",
                      "", "customText 4: EXPIRY DATE=1/3/1970 12:23 AM\n"}));
    EXPECT_EQ(reading.found(FindingKind::unreadableDate, "expiry date"), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "Identity"), 1);
    EXPECT_EQ(reading.unread("titles of sections"), 1);
    EXPECT_EQ(reading.unread("identifier"), 5);
}

TEST(OnePasswordCSVTest, readsColumnsOfVersion7ForMacByTheirIdentifiers) {
    const Reading reading = readingOf(
        "Title,Type,Username,Password,Scope,Tags,user(username),secret(password),site(url),"
        "month(expiry_mm),year(expiry_yy),mail(email),code(TOTP_1),bank password(bank_password),"
        "phone (local),(x),open(id,empty(),two words(a b)\n"
        R"(L,Login,,,,"{()"
        "\n"
        R"(    \"a b\",)"
        "\n"
        R"(    \"open,)"
        "\n    \\\"\n"
        R"()}",ann,pw,https://a.example,,,a@b,otp,bp,1,2,3,4,5)"
        "\n"
        R"(C,Credit Card,,,,"{(odd",,,,3,27,,,,,,,,)"
        "\n"
        "N,,,one,,\"odd)}\",,,,,,,,,,,,,\n");
    const Outcome expected = {
        .passwords =
            {{.username = "ann", .password = "pw", .url = "https://a.example", .service = "L"},
             {.username = "", .password = "one", .url = "", .service = "N"}},
        .cards = {{.cardNumber = "",
                   .custName = "C",
                   .holderName = "",
                   .cvv = "",
                   .pin = "",
                   .note = "",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"tag Tags=a b\ntag Tags=\"open\ntag Tags=\"\nemail mail=a@b\n"
                      "oneTimePassword code=otp\ncustomSecret bank password=bp\n"
                      "other phone (local)=1\nother (x)=2\nother open(id=3\nother empty()=4\n"
                      "other two words(a b)=5\n",
                      "tag Tags=odd)}\n", "tag Tags={(odd\n"}));
}

TEST(OnePasswordCSVTest, readsSectionsOfVersion7ForWindows) {
    const Reading reading = readingOf(
        R"("UUID","TITLE","USERNAME","PASSWORD","URL","SCOPE","AUTOSUBMIT","1: PIN","X 2: NUMBER",)"
        R"("SECTION A 1: PASSWORD","X 3: TELEPHONE PIN","X 4: SHIPPING ADDRESS","NAME 1: SEX",)"
        R"("NOTE: X","A-: Y",": Z","8: NUMBER","9: EXPIRY DATE")"
        "\n"
        R"("u1","A","","pw","","","","1","2","3","4","5","6","7","8","10","9","")"
        "\n"
        R"("u2","B","","","https://b","","","","","","","","","","","","","")"
        "\n"
        R"("u3","C","","","","","","","","","","","female","","","","","")"
        "\n"
        R"("u4","D","","","","","","","","","","","","","","","","soon")"
        "\n");
    const Outcome expected = {
        .passwords = {{.username = "", .password = "pw", .url = "", .service = "A"},
                      {.username = "", .password = "", .url = "https://b", .service = "B"}},
        .notes = {{.color = {}, .title = "C", .content = "NAME 1: SEX: female"},
                  {.color = {}, .title = "D", .content = "9: EXPIRY DATE: soon"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0),
              "customSecret 1: PIN=1\ncustomText X 2: NUMBER=2\n"
              "customSecret SECTION A 1: PASSWORD=3\ncustomSecret X 3: TELEPHONE PIN=4\n"
              "customText X 4: SHIPPING ADDRESS=5\ncustomText NAME 1: SEX=6\nother NOTE: X=7\n"
              "other A-: Y=8\nother : Z=10\ncustomSecret 8: NUMBER=9\n");
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "unknown kind"), 2);
}

} // namespace

} // namespace Rellinor::Tests
