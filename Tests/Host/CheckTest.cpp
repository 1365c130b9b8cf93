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
    const std::string path = lastPassExport("fine.csv", "https://a.example,ann,one,,A,,\n");
    const Ended ended = rellinor({"check", "--source", "lastPass", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(ended.out, path + ": read as lastPass, 1 record\n"
                                "  1 record would arrive: 1 password, 0 notes, 0 cards\n"
                                "  everything would arrive\n"
                                "  the faithful reading, lastpass-csv, gives the same records\n");
}

TEST_F(CheckTest, isContentIfOnlyPartsAreNotRead) {
    const std::string path = lastPassExport("fine.csv", "https://a.example,ann,one,,A,Private,\n");
    const Ended ended = rellinor({"check", "--source", "lastPass", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, path + ": read as lastPass, 1 record\n"
                                "  1 record would arrive: 1 password, 0 notes, 0 cards\n"
                                "  every record would arrive\n"
                                "  would not be read:\n"
                                "    grouping (1)\n"
                                "  the faithful reading, lastpass-csv, gives the same records\n");
}

TEST_F(CheckTest, namesTwelvePlacesAtMost) {
    std::string rows;
    for (int row = 0; row < 15; ++row) {
        rows += ",,,,,,\n";
    }
    const Ended ended =
        rellinor({"check", "--source", "lastPass", lastPassExport("many.csv", rows)});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(
        ended.out.contains("  15 records would be left out:\n"
                           "    lines 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13 and 3 more: There is "
                           "no text in any field that counts.\n"))
        << ended.out;
}

TEST_F(CheckTest, namesTheLineOfTheFileWhereARowBegins) {
    const std::string rows = "https://a.example,ann,x,\"one\n\nthree\",Mail,,0\n\n,,,,,,\n";
    const Ended ended =
        rellinor({"check", "--source", "lastPass", lastPassExport("lines.csv", rows)});
    EXPECT_TRUE(ended.out.contains("    line 6: There is no text")) << ended.out;
}

TEST_F(CheckTest, goesOnAfterAFailure) {
    const std::string bad = folder().file("bad.csv", "a,b\n");
    const std::string good = lastPassExport("good.csv", "");
    const Ended ended = rellinor({"check", "--source", "lastPass", bad, good});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, bad +
                             ": read as lastPass, nothing would arrive: The columns are not those "
                             "of such a file.\n" +
                             good +
                             ": read as lastPass, 0 records\n"
                             "  0 records would arrive: 0 passwords, 0 notes, 0 cards\n"
                             "  everything would arrive\n"
                             "  the faithful reading, lastpass-csv, gives the same records\n");
}

TEST_F(CheckTest, comparesASourceWithTheFaithfulReading) {
    const std::string same = folder().file("same.json", R"({"logins":[],"notes":[],"cards":[]})");
    const Ended ended = rellinor({"check", "--source", "tirel", same});
    EXPECT_EQ(ended.status, 0);
    EXPECT_TRUE(ended.out.contains("  the faithful reading, tirel-json, gives the same records\n"))
        << ended.out;

    // The import of the source leaves out more.
    const std::string fewer = RELLINOR_VAULT "/OnePassword/export.1pif";
    const Ended other = rellinor({"check", "--source", "onePassword", fewer});
    EXPECT_EQ(other.status, 1);
    EXPECT_TRUE(other.out.contains(
        "  the faithful reading, 1password-1pif, gives other records: against it there are "))
        << other.out;
}

TEST_F(CheckTest, makesNoFileOfAMissingPath) {
    for (const std::string source : {"auto", "chrome", "firefox", "lastPass"}) {
        const std::string path = folder() / "missing";
        const Ended ended = rellinor({"check", "--source", source, path});
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, path + ": nothing would arrive: There is no such file.\n");
        EXPECT_FALSE(std::filesystem::exists(path)) << source;
    }
}

TEST_F(CheckTest, doesNotReadAPipe) {
    const std::string path = folder() / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    for (const std::string source : {"auto", "lastPass"}) {
        const Ended ended = rellinor({"check", "--source", source, path});
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, path + ": nothing would arrive: It is no ordinary file.\n");
    }
}

TEST_F(CheckTest, rejectsWrongUsage) {
    EXPECT_EQ(rellinor({"check"}).status, 2);
    EXPECT_EQ(rellinor({"check", "--source", "nobody", "a.csv"}).status, 2);
    EXPECT_EQ(rellinor({"check", "--layout", "nothing", "a.csv"}).status, 2);
}

} // namespace

} // namespace Rellinor::Tests
