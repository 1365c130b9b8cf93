#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<std::string>;

TEST(KeePassCSVTest, readsBackslashesAsKeePassWritesThem) {
    const Reading reading =
        readingOf("\"Account\",\"Login Name\",\"Password\",\"Web Site\",\"Comments\"\r\n"
                  R"("Mail","ann","p\"1\\","https://mail.example.org/","line one)"
                  "\nline two\"\r\n"
                  R"("","C:\temp","a""b","","")"
                  "\r\n"
                  R"("Note alone","","","","text")"
                  "\r\n\"\",\"\",\"\",\"\",\"\"\r\n");
    const Outcome expected = {.passwords = {{.username = "ann",
                                             .password = "p\"1\\",
                                             .url = "https://mail.example.org/",
                                             .service = "Mail",
                                             .color = {},
                                             .note = "line one\nline two"},
                                            {.username = "C:\\temp", .password = "a\"b", .url = ""},
                                            {.username = "",
                                             .password = "",
                                             .url = "",
                                             .service = "Note alone",
                                             .color = {},
                                             .note = "text"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras, (Extras{"", "", ""}));
    EXPECT_EQ(reading.leftOut(LeftOutReason::empty), 1);
    EXPECT_EQ(reading.report.layout(), Layout::keePassCSV);
}

TEST(KeePassXCCSVTest, readsTenColumnsAndSix) {
    const Reading ten = readingOf(
        R"("Group","Title","Username","Password","URL","Notes","TOTP","Icon","Last Modified","Created")"
        "\n"
        R"("Root/Work","Mail","ann","p""1\","https://mail.example.org/","line one)"
        "\n"
        R"(line two","otpauth://totp/Mail:ann?secret=JBSWY3DPEHPK3PXP","0","2025-03-29T18:29:16Z",)"
        R"("2025-03-28T18:29:16Z")"
        "\n\"Root\",\"\",\"\",\"\",\"\",\"\",\"\",\"7\",\"x\",\"y\"\n"
        "\"Root\",\"T\",\"\",\"\",\"\",\"\",\"\",\"7\",\"x\",\"y\"\n");
    const Outcome expected = {
        .passwords = {{.username = "ann",
                       .password = "p\"1\\",
                       .url = "https://mail.example.org/",
                       .service = "Mail",
                       .color = {},
                       .note = "line one\nline two"},
                      {.username = "", .password = "", .url = "", .service = "T"}}};
    EXPECT_EQ(ten.records, expected);
    EXPECT_EQ(ten.extras.at(0),
              "folder Group=Root/Work\n"
              "oneTimePassword TOTP=otpauth://totp/Mail:ann?secret=JBSWY3DPEHPK3PXP\n"
              "modifiedAt Last Modified=2025-03-29T18:29:16Z\n"
              "createdAt Created=2025-03-28T18:29:16Z\n");
    EXPECT_EQ(ten.leftOut(LeftOutReason::empty), 1);
    EXPECT_EQ(ten.unread("icon"), 1); // the usual one counts for none

    const Reading six =
        readingOf("\"Group\",\"Title\",\"Username\",\"Password\",\"URL\",\"Notes\"\n"
                  "\"Root\",\"A\",\"ann\",\"one\",\"\",\"\"\n");
    const Outcome expectedOfSix = {
        .passwords = {{.username = "ann", .password = "one", .url = "", .service = "A"}}};
    EXPECT_EQ(six.records, expectedOfSix);
    EXPECT_EQ(six.extras, Extras{"folder Group=Root\n"});
    EXPECT_EQ(six.report.layout(), Layout::keePassXCCSV);
}

} // namespace

} // namespace Rellinor::Tests
