// rellinor check, whatever the source.

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

class CheckTest : public testing::Test {
protected:
    [[nodiscard]] std::string lastPassExport(std::string_view name, std::string_view rows) const {
        return _folder.file(name, lastPassRows(rows));
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
};

TEST_F(CheckTest, saysThatEverythingWouldArrive) {
    const std::string path = lastPassExport("fine.csv", "https://a.example,ann,one,,A,,0\n");
    const Ended ended = rellinor({"check", "--source", "lastPass", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(ended.out, path + ": read as lastPass, 1 row\n"
                                "  1 record would arrive: 1 password, 0 notes, 0 cards\n"
                                "  everything would arrive, nothing looks wrong\n");
}

TEST_F(CheckTest, isContentIfOnlyColumnsAreNeverImported) {
    const std::string path = lastPassExport("fine.csv", "https://a.example,ann,one,,A,Private,0\n");
    const Ended ended = rellinor({"check", "--source", "lastPass", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, path + ": read as lastPass, 1 row\n"
                                "  1 record would arrive: 1 password, 0 notes, 0 cards\n"
                                "  every row would arrive, nothing looks wrong\n"
                                "  never imported from this source:\n"
                                "    column \"grouping\": filled in 1 row\n");
}

TEST_F(CheckTest, failsIfARowWouldBeLeftOutOrSomethingLooksWrong) {
    EXPECT_EQ(
        rellinor({"check", "--source", "lastPass", lastPassExport("a.csv", ",,,,,,0\n")}).status,
        1);
    EXPECT_EQ(rellinor({"check", "--source", "lastPass",
                        lastPassExport("b.csv", "https://a.example,ann,a&amp;b,,A,,0\n")})
                  .status,
              1);
}

TEST_F(CheckTest, goesOnAfterAFailure) {
    const std::string bad = folder().file("bad.csv", "a,b\n");
    const std::string good = lastPassExport("good.csv", "");
    const Ended ended = rellinor({"check", "--source", "lastPass", bad, good});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, bad +
                             ": read as lastPass\n"
                             "  nothing would arrive: The operation couldn\u2019t be completed. "
                             "(Rellinor.TextError error 1.)\n"
                             "  looks wrong:\n"
                             "    line 1: 2 columns, where a LastPass export has 7\n" +
                             good +
                             ": read as lastPass, 0 rows\n"
                             "  0 records would arrive: 0 passwords, 0 notes, 0 cards\n"
                             "  everything would arrive, nothing looks wrong\n");
}

TEST_F(CheckTest, namesTwelvePlacesAtMost) {
    std::string rows;
    for (int row = 0; row < 15; ++row) {
        rows += ",,,,,,0\n";
    }
    const std::string path = lastPassExport("many.csv", rows);
    EXPECT_TRUE(rellinor({"check", "--source", "lastPass", path})
                    .out.contains("  15 rows would be left out:\n"
                                  "    lines 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13 and 3 more: "));
}

TEST_F(CheckTest, saysThatAFileIsRatherSomethingElse) {
    const std::string path = lastPassExport("other.csv", "https://a.example,ann,a&amp;b,,A,,0\n");
    const Ended ended = rellinor({"check", "--source", "dashlane", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, path + ": read as dashlane, 2 rows\n"
                                "  2 records would arrive: 2 passwords, 0 notes, 0 cards\n"
                                "  looks wrong:\n"
                                "    this looks like a LastPass export: try --source lastPass\n");
}

TEST_F(CheckTest, saysNothingElseOfAFileThatIsRatherSomethingElse) {
    const std::string path = RELLINOR_EXAMPLES "/Tirel/export.json";
    const Ended ended = rellinor({"check", "--source", "lastPass", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.out.ends_with("  looks wrong:\n"
                                    "    this looks like a Tirel export: try --source tirel\n"))
        << ended.out;
    EXPECT_EQ(linesIn(ended.out), 4) << ended.out;
}

TEST_F(CheckTest, takesBothForksOfKeePassForOne) {
    const std::string path = folder().file(
        "keepass.csv", "\"Account\",\"Login Name\",\"Password\",\"Web Site\",\"Comments\"\n");
    EXPECT_EQ(rellinor({"check", "--source", "keePassXC", path}).status, 0);
}

TEST_F(CheckTest, tellsMoreOfColumnsThatAreNearlyRight) {
    const std::string path =
        folder().file("eight.csv", "url,username,password,totp,extra,name,grouping,fav\n");
    const std::string out = rellinor({"check", "--source", "lastPass", path}).out;
    EXPECT_TRUE(out.contains("line 1: 8 columns, where a LastPass export has 7: take out")) << out;
    EXPECT_FALSE(out.contains("this looks like")) << out;
}

TEST_F(CheckTest, makesNoFileOfAMissingPath) {
    for (const std::string source : {"chrome", "firefox", "lastPass"}) {
        const std::string path = folder() / "missing";
        const Ended ended = rellinor({"check", "--source", source, path});
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, path + ": not checked: there is no such file or folder\n");
        EXPECT_FALSE(std::filesystem::exists(path)) << source;
    }
}

TEST_F(CheckTest, saysThatAMissingPathIsMissingWithoutASource) {
    const std::string path = folder() / "missing";
    EXPECT_EQ(rellinor({"check", path}).out,
              path + ": not checked: there is no such file or folder\n");
}

TEST_F(CheckTest, doesNotReadAPipe) {
    const std::string path = folder() / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const Ended ended = rellinor({"check", "--source", "lastPass", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out,
              path + ": not checked: it is a pipe: save what comes out of it as a file first\n");
}

TEST_F(CheckTest, showsAnEmptyPath) {
    EXPECT_EQ(rellinor({"check", ""}).out, "\"\": not checked: there is no such file or folder\n");
}

TEST_F(CheckTest, tellsFilesAndFoldersApart) {
    const std::string folderPath = folder().path();
    EXPECT_EQ(rellinor({"check", "--source", "chrome", folderPath}).out,
              folderPath + ": not checked: it is a folder, and chrome reads a file\n");
    const std::string file = folder().file("file", "");
    EXPECT_EQ(rellinor({"check", "--source", "firefox", file}).out,
              file + ": not checked: it is a file, and firefox reads a profile folder\n");
}

TEST_F(CheckTest, showsNothingOfTheContents) {
    const std::string path =
        lastPassExport("odd.csv", "https://a.example,ann,\"s3\"\"cret\",s3cret,"
                                  "s3cret,s3cret,s3cret\n"
                                  "s3cret,s3cret\"s3cret,\n");
    EXPECT_FALSE(rellinor({"check", "--source", "lastPass", path}).out.contains("cret"));
}

TEST_F(CheckTest, rejectsWrongUsage) {
    EXPECT_EQ(rellinor({"check"}).status, 2);
    EXPECT_EQ(rellinor({"check", "--source", "nobody", "a.csv"}).status, 2);
}

} // namespace

} // namespace Rellinor::Tests
