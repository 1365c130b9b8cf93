#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"

// What browsers export, whose files differ in little but their names of columns.

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<std::string>;

TEST(ChromiumCSVTest, readsFilesWithNotesAndWithout) {
    const Reading reading =
        readingOf("name,url,username,password,note\r\n"
                  "mail.example.org,https://mail.example.org/,ann,\"p,\"\"1\",\r\n"
                  "Example App,android://hash==@org.example.app/,ann,pw2,\"two\r\nlines\"\r\n");
    const Outcome expected = {.passwords = {{.username = "ann",
                                             .password = "p,\"1",
                                             .url = "https://mail.example.org/",
                                             .service = "mail.example.org"},
                                            {.username = "ann",
                                             .password = "pw2",
                                             .url = "android://hash==@org.example.app/",
                                             .service = "Example App",
                                             .color = {},
                                             .note = "two\r\nlines"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.report.layout(), Layout::chromiumCSV);

    const Outcome older = {
        .passwords = {{.username = "", .password = "x", .url = "https://a", .service = "a"}}};
    EXPECT_EQ(readingOf("name,url,username,password\na,https://a,,x\n").records, older);
}

TEST(FirefoxCSVTest, readsLoginsWithTheTimeOfTheirPasswords) {
    const Reading reading = readingOf(
        R"("url","username","password","httpRealm","formActionOrigin","guid","timeCreated",)"
        R"("timeLastUsed","timePasswordChanged")"
        "\r\n"
        R"("https://mail.example.org","ann","p,""1",,"https://form.example.org","{0}","1743265493997",)"
        R"("1743265493998","1743265493999")"
        "\r\n"
        R"("https://intra.example.org:8443","bob","pw2","Intranet",,"{1}","1","2","soon")"
        "\r\n"
        R"("chrome://FirefoxAccounts","u","{}","FxA",,"{2}","1","2","3")");
    const Outcome expected = {
        .passwords = {
            {.username = "ann",
             .password = "p,\"1",
             .url = "https://mail.example.org",
             .service = {},
             .color = {},
             .note = {},
             .pwdChange = 1743265493},
            {.username = "bob", .password = "pw2", .url = "https://intra.example.org:8443"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(
        reading.extras,
        (Extras{"other formActionOrigin=https://form.example.org\n"
                "createdAt timeCreated=1743265493997\nlastUsedAt timeLastUsed=1743265493998\n",
                "other httpRealm=Intranet\ncreatedAt timeCreated=1\n"
                "lastUsedAt timeLastUsed=2\nother timePasswordChanged=soon\n"}));
    EXPECT_EQ(reading.leftOut(LeftOutReason::browserAccount), 1);
    EXPECT_EQ(reading.found(FindingKind::unreadableDate, "timepasswordchanged"), 1);
    EXPECT_EQ(reading.unread("guid"), 2);
    EXPECT_EQ(reading.report.layout(), Layout::firefoxCSV);

    const Reading older = readingOf("hostname,url,username,password,httpRealm,formSubmitURL,guid\n"
                                    "h,https://a,ann,one,,https://b,{0}\n");
    EXPECT_EQ(older.extras, Extras{"other hostname=h\nother formSubmitURL=https://b\n"});
    EXPECT_EQ(older.report.layout(), Layout::firefoxCSV);
}

TEST(AppleCSVTest, readsFilesOfAllVersions) {
    const Outcome expected = {.passwords = {{.username = "ann",
                                             .password = "one",
                                             .url = "https://a.example/",
                                             .service = "a.example (ann)",
                                             .color = {},
                                             .note = "two\nlines"}}};
    const Reading reading =
        readingOf("Title,URL,Username,Password,Notes,OTPAuth\n"
                  "a.example (ann),https://a.example/,ann,one,\"two\nlines\",otpauth://totp/x\n");
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, Extras{"oneTimePassword OTPAuth=otpauth://totp/x\n"});
    EXPECT_EQ(reading.report.layout(), Layout::appleCSV);
    for (const std::string_view columns : {",OTPAuth", ""}) {
        const Reading older = readingOf("Title,URL,Username,Password" + std::string(columns) +
                                        "\n\"T\",\"\",\"\",\"p\"" + std::string(columns) + "\n");
        EXPECT_EQ(older.records.passwords.at(0).service, "T");
        EXPECT_EQ(older.report.layout(), Layout::appleCSV);
    }
}

TEST(FirefoxCSVTest, keepsATimeThatIsNone) {
    for (const std::string_view time : {"12x", "-5", "99999999999999999999"}) {
        const Reading reading =
            readingOf("url,username,password,httpRealm,formActionOrigin,guid,timePasswordChanged\n"
                      "https://a,ann,one,,,," +
                      std::string(time) + "\n");
        EXPECT_EQ(reading.records.passwords.at(0).pwdChange, std::nullopt);
        EXPECT_EQ(reading.extras.at(0), "other timePasswordChanged=" + std::string(time) + "\n");
        EXPECT_EQ(reading.found(FindingKind::unreadableDate), 1) << time;
    }
}

} // namespace

} // namespace Rellinor::Tests
