#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"

// What password managers export of which nothing but CSV files is read.

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<std::string>;

// Bitwarden

constexpr std::string_view bitwarden =
    "folder,favorite,type,name,notes,fields,reprompt,login_uri,login_username,login_password,"
    "login_totp\r\n";

TEST(BitwardenCSVTest, readsLoginsAndNotes) {
    const Reading reading =
        readingOf(std::string(bitwarden) +
                  "Work/Mail,1,login,Mail,\"two\nlines\",\"pin: 9876\nhint: blue\",0,"
                  "\"https://mail.example.org,https://m.example.org\",ann,\"p,\"\"1\",JBSW\r\n"
                  ",,note,My note,secret text,,1,,,,");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p,\"1",
                       .url = "https://mail.example.org",
                       .service = "Mail",
                       .color = {},
                       .note = "two\nlines"}},
        .notes = {{.color = {}, .title = "My note", .content = "secret text"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, (Extras{"folder folder=Work/Mail\nfavourite favorite=true\n"
                                      "customText pin=9876\ncustomText hint=blue\n"
                                      "furtherURL login_uri=https://m.example.org\n"
                                      "oneTimePassword login_totp=JBSW\n",
                                      ""}));
    EXPECT_EQ(reading.unread("settings of the product"), 1);
    EXPECT_EQ(reading.report.layout(), Layout::bitwardenCSV);
}

TEST(BitwardenCSVTest, readsTheOtherHeaders) {
    const Reading archived =
        readingOf("folder,favorite,type,name,notes,fields,reprompt,archivedDate,login_uri,"
                  "login_username,login_password,login_totp\n"
                  ",,login,A,,,0,2026-01-02T00:00:00.000Z,,ann,one,\n");
    EXPECT_EQ(archived.extras, Extras{"archived archivedDate=true\n"
                                      "other archivedDate=2026-01-02T00:00:00.000Z\n"});
    const Reading collections =
        readingOf("collections,type,name,notes,fields,reprompt,login_uri,login_username,"
                  "login_password,login_totp\n\"a,b\",login,A,,,,,ann,one,\n");
    EXPECT_EQ(collections.extras, Extras{"folder collections=a,b\n"});
    EXPECT_EQ(collections.report.layout(), Layout::bitwardenCSV);
}

TEST(BitwardenCSVTest, partsFieldsAndAddressesWhereThatIsCertain) {
    const auto extrasOf = [](std::string_view fields, std::string_view uris) {
        return readingOf(std::string(bitwarden) + ",,login,A,,\"" + std::string(fields) + "\",,\"" +
                         std::string(uris) + "\",ann,one,\n")
            .extras.at(0);
    };
    EXPECT_EQ(extrasOf("a: 1\nmore\n\nof it\nb: x: y", ""),
              "customText a=1\nmore\n\nof it\ncustomText b=x: y\n");
    EXPECT_EQ(extrasOf("no name\nmore\na: 1", ""),
              "customText fields=no name\nmore\ncustomText a=1\n");
    EXPECT_EQ(extrasOf("", "https://a.example/x,y"), "");
    EXPECT_EQ(extrasOf("", "https://a,b,https://c"), "");
    EXPECT_EQ(extrasOf("", "https://a,androidapp://b,https://a"),
              "furtherURL login_uri=androidapp://b\n");
}

// Proton Pass

constexpr std::string_view protonPass =
    "type,name,url,email,username,password,note,totp,createTime,modifyTime,vault\r\n";

TEST(ProtonPassCSVTest, readsEveryType) {
    const Reading reading = readingOf(
        std::string(protonPass) +
        "login,Mail,\"https://a.example, https://b.example\",a@b,,one,n,otpauth://totp/x,17,18,"
        "Personal\r\n"
        "login,Both,,a@b,ann,two,,,17,18,\r\n"
        "note,N,,,,,text,,17,18,Personal\r\n"
        "alias,Alias,,x@alias.example,,,,,17,18,\r\n"
        R"(creditCard,Main,,,,,"{""cardholderName"":""Ann Example"",""cardType"":1,)"
        R"(""number"":""4111"",""verificationNumber"":""123"",""expirationDate"":""2027-03"",)"
        R"(""pin"":""9876"",""note"":""blue""}",,17,18,)"
        "\r\n"
        R"(identity,Me,,,,,"{""fullName"":""Ann Example"",""email"":"""",)"
        R"(""extraPersonalDetails"":[{""fieldName"":""shoe"",""type"":""text"",)"
        R"(""data"":{""content"":""39""}}],""note"":""own""}",,17,18,)"
        "\r\n"
        "wifi,Home,,,,,in the hall,,17,18,");
    const Outcome expected = {
        .passwords = {{.username = "a@b",
                       .password = "one",
                       .url = "https://a.example",
                       .service = "Mail",
                       .color = {},
                       .note = "n"},
                      {.username = "ann", .password = "two", .url = "", .service = "Both"}},
        .notes = {{.color = {}, .title = "N", .content = "text"},
                  {.color = {}, .title = "Alias", .content = "email: x@alias.example"},
                  {.color = {}, .title = "Me", .content = "fullName: Ann Example\nshoe: 39\n\nown"},
                  {.color = {}, .title = "Home", .content = "in the hall"}},
        .cards = {{.cardNumber = "4111",
                   .custName = "Main",
                   .holderName = "Ann Example",
                   .cvv = "123",
                   .pin = "9876",
                   .note = "blue",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    const std::string times = "createdAt createTime=17\nmodifiedAt modifyTime=18\n";
    EXPECT_EQ(reading.extras,
              (Extras{"furtherURL url=https://b.example\noneTimePassword totp=otpauth://totp/x\n" +
                          times + "folder vault=Personal\n",
                      "email email=a@b\n" + times, times + "folder vault=Personal\n", times, times,
                      times, "customText cardType=1\n" + times}));
    for (const std::string_view kind : {"alias", "identity", "wifi"}) {
        EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, kind), 1) << kind;
    }
    EXPECT_EQ(reading.report.layout(), Layout::protonPassCSV);
}

TEST(ProtonPassCSVTest, readsWhatJSONInCellsGives) {
    const auto cardWith = [](std::string_view note) {
        std::string cell(note);
        for (std::size_t quote = cell.find('"'); quote != std::string::npos;
             quote = cell.find('"', quote + 2)) {
            cell.insert(quote, 1, '"');
        }
        return readingOf(std::string(protonPass) + "creditCard,C,,,,,\"" + cell + "\",,,,\n");
    };
    EXPECT_EQ(cardWith(R"({"expirationDate":"122027"})").records.cards.at(0).expirationYear, 2027);
    EXPECT_EQ(cardWith(R"({"expirationDate":"122027"})").records.cards.at(0).expirationMonth, 12);
    const Reading soon = cardWith(R"({"expirationDate":"soon"})");
    EXPECT_EQ(soon.extras.at(0), "customText expirationDate=soon\n");
    EXPECT_EQ(soon.found(FindingKind::unreadableDate, "expirationDate"), 1);
    const Reading two = cardWith(R"({"expirationDate":"122027","expirationDate":"012028"})");
    EXPECT_EQ(two.records.cards.at(0).expirationYear, 2027);
    EXPECT_EQ(two.extras.at(0), "customText expirationDate=012028\n");
    const Reading other = cardWith(R"({"number":4111,"pin":null,"x":1.5,"note":"n"})");
    EXPECT_EQ(other.records.cards.at(0).cardNumber, "4111");
    EXPECT_EQ(other.found(FindingKind::valueOfOtherType, "note"), 1);
    const Reading none = cardWith("{\"number\":");
    EXPECT_EQ(none.records.cards.at(0).note, "{\"number\":");
    EXPECT_EQ(none.found(FindingKind::valueOfOtherType, "note"), 1);
}

TEST(ProtonPassCSVTest, readsAddressesForAutofill) {
    const auto read = [](std::string_view url, std::string_view autofill) {
        return readingOf("type,name,url,autofillUrls,email,username,password,note,totp,createTime,"
                         "modifyTime,vault\nlogin,A," +
                         std::string(url) + ",\"" + std::string(autofill) + "\",,ann,one,,,,,\n");
    };
    const Reading more =
        read("https://a", R"([{""url"":""https://a"",""mode"":0},{""url"":""https://b""}])");
    EXPECT_EQ(more.records.passwords.at(0).url, "https://a");
    EXPECT_EQ(more.extras.at(0), "furtherURL autofillUrls=https://b\n");
    EXPECT_EQ(more.unread("settings of the product"), 1);
    EXPECT_EQ(read("", R"([{""url"":""https://b""}])").records.passwords.at(0).url, "https://b");
    const Reading odd = read("", "https://b");
    EXPECT_EQ(odd.extras.at(0), "other autofillUrls=https://b\n");
    EXPECT_EQ(odd.found(FindingKind::valueOfOtherType, "autofillurls"), 1);
}

// NordPass

TEST(NordPassCSVTest, readsEveryType) {
    const Reading reading = readingOf(
        "name,url,additional_urls,username,password,note,cardholdername,cardnumber,cvc,pin,"
        "expirydate,zipcode,folder,full_name,phone_number,email,address1,address2,city,country,"
        "state,type,custom_fields\n"
        "Mail,https://mail.example.org,\"[\"\"https://m.example.org\"\"]\",ann,\"p,1\",,,,,,,,Work,"
        ",,,,,,,,password,\"[{\"\"label\"\":\"\"hint\"\",\"\"type\"\":\"\"text\"\",\"\"value\"\":"
        "\"\"blue\"\"},{\"\"label\"\":\"\"code\"\",\"\"type\"\":\"\"hidden\"\",\"\"value\"\":17}]"
        "\"\n"
        "\n"
        "Main card,,,,,blue,Ann Example,4111111111111111,123,9876,03/27,12345,,,,,,,,,,"
        "credit_card,\n"
        "Me,,,,,own,,,,,,,Work,Ann Example,555,a@b,Street 1,,Town,DE,,identity,\n"
        "N,,,,,text,,,,,,,,,,,,,,,,note,\n"
        "Work,,,,,,,,,,,,,,,,,,,,,folder,\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p,1",
                       .url = "https://mail.example.org",
                       .service = "Mail"}},
        .notes = {{.color = {},
                   .title = "Me",
                   .content = "full_name: Ann Example\nphone_number: 555\nemail: a@b\n"
                              "address1: Street 1\ncity: Town\ncountry: DE\n\nown"},
                  {.color = {}, .title = "N", .content = "text"}},
        .cards = {{.cardNumber = "4111111111111111",
                   .custName = "Main card",
                   .holderName = "Ann Example",
                   .cvv = "123",
                   .pin = "9876",
                   .note = "blue",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"furtherURL additional_urls=https://m.example.org\nfolder folder=Work\n"
                      "customText hint=blue\ncustomSecret code=17\n",
                      "folder folder=Work\n", "", "customText zipcode=12345\n"}));
    EXPECT_EQ(reading.leftOut(LeftOutReason::placeholder), 1);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "identity"), 1);
    EXPECT_EQ(reading.report.layout(), Layout::nordPassCSV);
}

TEST(NordPassCSVTest, tellsTheKindsOfOlderFiles) {
    const Reading reading = readingOf(
        "name,url,username,password,note,cardholdername,cardnumber,cvc,expirydate,"
        "zipcode,folder,full_name,phone_number,email,address1,address2,city,country,state\n"
        "A,https://a,ann,one,,,,,,,,,,,,,,,\n"
        "C,,,,,,4111,,3/27,,,,,,,,,,\n"
        "I,,,,,,,,,,,Ann,,,,,,,\n"
        "N,,,,text,,,,,,,,,,,,,,\n"
        "Work,,,,,,,,,,,,,,,,,,\n");
    EXPECT_EQ(reading.records.passwords.size(), 1);
    EXPECT_EQ(reading.records.cards.at(0).expirationYear, 2027);
    EXPECT_EQ(reading.records.notes.size(), 2);
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "identity"), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::placeholder), 1);
}

// RoboForm

TEST(RoboFormCSVTest, readsLoginsBookmarksAndNotes) {
    const Reading reading =
        readingOf("\uFEFFName,Url,MatchUrl,Login,Pwd,Note,Folder,RfFieldsV2\r\n"
                  "Mail,https://a,https://a/login,ann,'-pw,n,/Work,\"User ID$,,,txt,ann\","
                  "\"TOTP KEY$,,,txt,JBSW\",\"Pass$,1,2,pwd,x,y\"\r\n"
                  "Site,https://b,https://b,,,,/,\r\n"
                  "Note,,,,,'text,,\r\n");
    const Outcome expected = {.passwords = {{.username = "ann",
                                             .password = "-pw",
                                             .url = "https://a",
                                             .service = "Mail",
                                             .color = {},
                                             .note = "n"}},
                              .notes = {{.color = {}, .title = "Site", .content = "Url: https://b"},
                                        {.color = {}, .title = "Note", .content = "'text"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, (Extras{"furtherURL MatchUrl=https://a/login\nfolder Folder=/Work\n"
                                      "customText User ID=ann\noneTimePassword TOTP KEY=JBSW\n"
                                      "customSecret Pass=x,y\n",
                                      "folder Folder=/\n", ""}));
    EXPECT_EQ(reading.found(FindingKind::arrivedAsNote, "bookmark"), 1);
    EXPECT_EQ(reading.found(FindingKind::longRow), 0);
    EXPECT_EQ(reading.report.layout(), Layout::roboFormCSV);

    EXPECT_EQ(readingOf("Name,Url,Login,Pwd,Note,Folder,Rf_fields\n"
                        "A,https://a,ann,one,,,Hint$:txt:b:c,no field\n")
                  .extras,
              Extras{"customText Hint=b:c\ncustomText =no field\n"});
}

// Strongbox

TEST(StrongboxCSVTest, readsLogins) {
    const Reading reading = readingOf("Title,Username,Email,Password,URL,OTPAuth,Notes\n"
                                      "A,ann,a@b,one,https://a,otpauth://totp/x,n\n"
                                      "B,,a@b,two,,,\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "one",
                       .url = "https://a",
                       .service = "A",
                       .color = {},
                       .note = "n"},
                      {.username = "a@b", .password = "two", .url = "", .service = "B"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"email Email=a@b\noneTimePassword OTPAuth=otpauth://totp/x\n", ""}));
    EXPECT_EQ(reading.report.layout(), Layout::strongboxCSV);
}

// Buttercup

TEST(ButtercupCSVTest, readsEntriesAndLeavesOutGroups) {
    const Reading reading = readingOf(
        "!type,!group_id,!group_name,!group_parent,title,username,password,URL,id,Notes,Hint\n"
        "group,g1,Work,0,,,,,,,\n"
        "entry,g1,Work,,A,ann,one,https://a,e1,n,blue\n");
    const Outcome expected = {.passwords = {{.username = "ann",
                                             .password = "one",
                                             .url = "https://a",
                                             .service = "A",
                                             .color = {},
                                             .note = "n"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, Extras{"folder !group_name=Work\nother Hint=blue\n"});
    EXPECT_EQ(reading.leftOut(LeftOutReason::placeholder), 1);
    EXPECT_EQ(reading.report.layout(), Layout::buttercupCSV);
}

// Keeper and Enpass, whose files have no header

TEST(KeeperCSVTest, readsRowsByPosition) {
    constexpr std::string_view text =
        "\"Work\",\"Mail\",\"ann\",\"p\"\"1\",\"https://a\",\"n\",\"Shared\",\"TFC:Keeper\","
        "\"otpauth://totp/x\",\"hint\",\"blue\"\n"
        "\"\",\"Note\",\"\",\"\",\"\",\"text\",\"\"\n"
        "\"\",\"T\",\"\",\"pw\",\"\",\"\",\"\",\"alone\"\n";
    const Reading reading = readingOf(Layout::keeperCSV, text);
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p\"1",
                       .url = "https://a",
                       .service = "Mail",
                       .color = {},
                       .note = "n"},
                      {.username = "", .password = "pw", .url = "", .service = "T"}},
        .notes = {{.color = {}, .title = "Note", .content = "text"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"folder folder=Work\nfolder shared folder=Shared\n"
                      "oneTimePassword TFC:Keeper=otpauth://totp/x\ncustomText hint=blue\n",
                      "customText =alone\n", ""}));
    EXPECT_TRUE(reading.report.findings().empty());
    EXPECT_EQ(readingOf(text).report.failure().reason, FailureReason::unknown);
}

TEST(EnpassCSVTest, readsRowsOfLabelsAndValues) {
    const Reading reading =
        readingOf(Layout::enpassCSV,
                  "\"Title\",\"Field\",\"Value\",\"Field\",\"Value\",.........,\"Note\"\n"
                  "\"Mail\",\"Username\",\"ann\",\"*Password\",\"p\"\"1\",\"URL\",\"https://a\","
                  "\"*PIN code\",\"9876\",\"two\nlines\"\n"
                  "\"Card\",\"Cardholder\",\"Ann\",\"Number\",\"4111\",\"*CVC\",\"123\",\"*PIN\","
                  "\"9876\",\"Expiry date\",\"03/27\",\"Bank\",\"B\"\n"
                  "\"Note\",\"text\"\n"
                  "\"Pass\",\"Nummer\",\"X1\",\"own\"\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p\"1",
                       .url = "https://a",
                       .service = "Mail",
                       .color = {},
                       .note = "two\nlines"}},
        .notes = {{.color = {}, .title = "Note", .content = "text"},
                  {.color = {}, .title = "Pass", .content = "Nummer: X1\n\nown"}},
        .cards = {{.cardNumber = "4111",
                   .custName = "Card",
                   .holderName = "Ann",
                   .cvv = "123",
                   .pin = "9876",
                   .note = "",
                   .expirationMonth = 3,
                   .expirationYear = 2027}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras,
              (Extras{"customSecret PIN code=9876\n", "", "", "customText Bank=B\n"}));
    EXPECT_EQ(reading.report.recordCount(), 4);
    EXPECT_EQ(reading.report.findings().front().places.first, std::vector<std::uint64_t>{6});
}

// What several of them have in common

TEST(NordPassCSVTest, readsDatesOfCards) {
    struct Dated {
        std::string_view text;
        std::int64_t month;
        std::int64_t year;
        bool isRead = true;
    };

    for (const auto& [text, month, year, isRead] :
         {Dated{"03/27", 3, 2027}, Dated{"3/27", 3, 2027}, Dated{"12/2030", 12, 2030},
          Dated{" 03 / 27 ", 3, 2027}, Dated{"2027 - 03", 3, 2027}, Dated{" 03 /2027", 3, 2027},
          Dated{"202703", 3, 2027}, Dated{"  ", 0, 0}, Dated{"00/27", 0, 0, false},
          Dated{"13/27", 0, 0, false}, Dated{"/27", 0, 0, false}, Dated{"03/", 0, 0, false},
          Dated{"3a/27", 0, 0, false}, Dated{"03/20270", 0, 0, false},
          Dated{"03:27", 0, 0, false}}) {
        const Reading reading =
            readingOf("name,url,username,password,note,cardholdername,cardnumber,cvc,expirydate,"
                      "zipcode,folder,type\nC,,,,,,4111,," +
                      std::string(text) + ",,,credit_card\n");
        ASSERT_EQ(reading.records.cards.size(), 1) << text;
        EXPECT_EQ(reading.records.cards[0].expirationMonth, month) << text;
        EXPECT_EQ(reading.records.cards[0].expirationYear, year) << text;
        EXPECT_EQ(reading.found(FindingKind::unreadableDate, "expirydate"), isRead ? 0 : 1) << text;
        EXPECT_EQ(reading.extras.at(0),
                  isRead ? "" : "customText expirydate=" + std::string(text) + "\n");
    }
}

TEST(NordPassCSVTest, tellsALoginByAnyOfItsFields) {
    const Reading reading = readingOf(
        "name,url,username,password,note,cardholdername,cardnumber,cvc,expirydate,zipcode,folder,"
        "full_name,city,type,custom_fields\n"
        "A,https://a,,,,,,,,,,,,,\n"
        "B,,ann,,,,,,,,,,,,\"[{\"\"id\"\":1,\"\"label\"\":\"\"on\"\",\"\"value\"\":true},"
        "{\"\"label\"\":\"\"off\"\",\"\"value\"\":false}]\"\n"
        "C,,,one,n,,,,,,,,,,{}\n"
        "D,,,,,,,,,,,Ann,Town,,\n"
        "E,,,,,,,,,,,,,spaceship,\n");
    const Outcome expected = {
        .passwords = {{.username = "", .password = "", .url = "https://a", .service = "A"},
                      {.username = "ann", .password = "", .url = "", .service = "B"},
                      {.username = "",
                       .password = "one",
                       .url = "",
                       .service = "C",
                       .color = {},
                       .note = "n"}},
        .notes = {{.color = {}, .title = "D", .content = "full_name: Ann\ncity: Town"},
                  {.color = {}, .title = "E", .content = "type: spaceship"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(1), "customText on=true\ncustomText off=false\n");
    EXPECT_EQ(reading.extras.at(2), "other custom_fields={}\n");
    EXPECT_EQ(reading.found(FindingKind::valueOfOtherType, "custom_fields"), 1);
}

TEST(ProtonPassCSVTest, readsThePartsOfAnIdentity) {
    const Reading reading =
        readingOf(std::string(protonPass) +
                  R"(identity,Me,,,,,"{""number"":""17"",""pin"":true,""note"":""own"",)"
                  R"(""extra"":[{""fieldName"":""shoe"",""type"":""text"",""data"":)"
                  R"({""content"":""39"",""more"":[""40""]}},{""fieldName"":null,""x"":""y"",)"
                  R"(""type"":""z""}]}",,,,)"
                  "\n"
                  R"(login,L,,,,pw,"{""number"":""4""}",,,,)"
                  "\n");
    EXPECT_EQ(reading.records.notes.at(0).content,
              "number: 17\npin: true\nshoe: 39\nshoe: 40\nx: y\ntype: z\n\nown");
    EXPECT_EQ(reading.records.passwords.at(0).note, "{\"number\":\"4\"}");
    EXPECT_EQ(
        readingOf("type,name,url,autofillUrls,email,username,password,note,totp,createTime,"
                  "modifyTime\nlogin,A,,\"[{\"\"url\"\":\"\"https://a\"\",\"\"mode\"\":null}]\""
                  ",,,one,,,,\n")
            .report.unread()
            .size(),
        0);
}

TEST(BitwardenCSVTest, partsAddressesThatAllHaveASchemeAlone) {
    const auto addressesOf = [](std::string_view uris) {
        const Reading reading = readingOf(std::string(bitwarden) + ",,login,A,,,,\"" +
                                          std::string(uris) + "\",ann,one,\n");
        return reading.records.passwords.at(0).url + "\n" + reading.extras.at(0);
    };
    EXPECT_EQ(addressesOf("HTTPS://a,iosapp://b,h2+x-1.y://c"),
              "HTTPS://a\nfurtherURL login_uri=iosapp://b\nfurtherURL login_uri=h2+x-1.y://c\n");
    for (const std::string_view whole : {"https://a,://b", "https://a,x_y://b", "https://a,x{y://b",
                                         "https://a, https://b", "https://a,b"}) {
        EXPECT_EQ(addressesOf(whole), std::string(whole) + "\n");
    }
}

TEST(RoboFormCSVTest, tellsALoginByAnyOfItsFields) {
    const Reading reading = readingOf("Name,Url,Login,Pwd,Note,Folder,RfFieldsV2\n"
                                      "A,,ann,,,,\n"
                                      "B,,,one,,,\n"
                                      "C,https://c,,,n,/Work,\"Code$,,,pwd,17\"\n");
    EXPECT_EQ(reading.records.passwords.size(), 3);
    EXPECT_EQ(reading.extras, (Extras{"", "", "folder Folder=/Work\ncustomSecret Code=17\n"}));
}

TEST(KeeperCSVTest, tellsALoginByAnyOfItsFields) {
    const Reading reading =
        readingOf(Layout::keeperCSV, "\"\",\"A\",\"\",\"\",\"https://a\",\"\",\"\"\n"
                                     "\"\",\"B\",\"\",\"\",\"\",\"\",\"\",\"x\",\"y\"\n"
                                     "\"\",\"C\",\"\",\"\",\"\",\"text\",\"\",\"x\",\"\"\n");
    EXPECT_EQ(reading.records.passwords.size(), 2);
    EXPECT_EQ(reading.extras.at(1), "customText x=y\n");
    const std::vector<Note> notes = {{.color = {}, .title = "C", .content = "text"}};
    EXPECT_EQ(reading.records.notes, notes);
}

TEST(KeeperCSVTest, readsRowsThatEndWithCarriageReturns) {
    const Reading reading =
        readingOf(Layout::keeperCSV, "\"\",\"A\",\"ann\",\"one\",\"\",\"two\nlines\",\"\"\r"
                                     "\"\",\"B\",\"bob\",\"two\",\"\",\"\",\"\"\r");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "one",
                       .url = "",
                       .service = "A",
                       .color = {},
                       .note = "two\nlines"},
                      {.username = "bob", .password = "two", .url = "", .service = "B"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(readingOf(Layout::keeperCSV, "\"\",\"A\"\r\"\",\"B\"\r").records.notes.size(), 2);
}

TEST(EnpassCSVTest, tellsTheKindsOfRows) {
    const Reading reading = readingOf(
        Layout::enpassCSV, "\"A\",\"Number\",\"1\",\"CVC\",\"123\"\n"
                           "\"B\",\"Number\",\"2\",\"Expiry date\",\"03/27\",\"Expiry date\","
                           "\"04/28\",\"Expiry date\",\"03/28\",\"Expiry date\",\"3/2027\"\n"
                           "\"C\",\"Number\",\"3\"\n"
                           "\"D\",\"Number\",\"4\",\"*Password\",\"one\"\n"
                           "\"E\",\"Website\",\"https://e\",\"URL\",\"https://f\",\"URL\","
                           "\"https://e\"\n"
                           "\"F\",\"E-mail\",\"a@b\",\"Password\",\"two\"\n"
                           "\"G\",\"Cardholder\",\"Ann\",\"Phone\",\"555\"\n");
    const auto cards = [](const Card& card) { return card.cardNumber + card.custName; };
    ASSERT_EQ(reading.records.cards.size(), 2);
    EXPECT_EQ(cards(reading.records.cards[0]), "1A");
    EXPECT_EQ(cards(reading.records.cards[1]), "2B");
    EXPECT_EQ(reading.records.cards[1].expirationYear, 2027);
    EXPECT_EQ(
        reading.records.passwords,
        (std::vector<Password>{{.username = "", .password = "one", .url = "", .service = "D"},
                               {.username = "", .password = "", .url = "https://e", .service = "E"},
                               {.username = "a@b", .password = "two", .url = "", .service = "F"}}));
    EXPECT_EQ(reading.records.notes.at(0).content, "Number: 3");
    EXPECT_EQ(reading.records.notes.at(1).content, "Cardholder: Ann\nPhone: 555");
    EXPECT_EQ(reading.extras,
              (Extras{"customSecret Number=4\n", "furtherURL URL=https://f\n", "", "", "", "",
                      "customText Expiry date=04/28\ncustomText Expiry date=03/28\n"}));
}

TEST(EnpassCSVTest, passesOverTheHeadingHoweverItEnds) {
    const std::string heading = R"("Title","Field","Value","Field","Value",.........,"Note")";
    const std::string row = R"("N","text")";
    const std::vector<Note> notes = {{.color = {}, .title = "N", .content = "text"}};
    for (const std::string_view end : {"\n", "\r\n", "\r"}) {
        const Reading reading =
            readingOf(Layout::enpassCSV, heading + std::string(end) + row + std::string(end));
        EXPECT_EQ(reading.records.notes, notes);
        EXPECT_EQ(reading.report.recordCount(), 1);
    }
    EXPECT_EQ(readingOf(Layout::enpassCSV, row).records.notes, notes);
    EXPECT_EQ(readingOf(Layout::enpassCSV, heading).report.recordCount(), 0);
}

} // namespace

} // namespace Rellinor::Tests
