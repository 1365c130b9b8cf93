// What is found out about files, in the commands that need it, run as processes.

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::string_view lastPassFound =
    "lastPass (certain): LastPass export; the columns url, username, password, extra, name, "
    "grouping and fav";

class DetectCommandTest : public testing::Test {
protected:
    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    [[nodiscard]] std::string lastPass(std::string_view name = "export.csv") const {
        return _folder.file(name, lastPassRows("https://a.example,ann,one,,Mail,,0\n"));
    }

private:
    TemporaryFolder _folder;
};

// detect

TEST_F(DetectCommandTest, showsOneLineForEachPathInOrder) {
    const std::string one = lastPass("one.csv");
    const std::string profile = RELLINOR_EXAMPLES "/Firefox/current.profile";
    const Ended ended = rellinor({"detect", one, profile});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, one + ": " + std::string(lastPassFound) + "\n" + profile +
                             ": firefox (certain): Firefox profile; the file logins.json\n");
    EXPECT_EQ(ended.errors, "");
}

TEST_F(DetectCommandTest, succeedsOnlyIfEveryPathCanBeRead) {
    const std::string known = lastPass();
    const std::string eight =
        folder().file("eight.csv", "url,username,password,totp,extra,name,grouping,fav\n");
    EXPECT_EQ(rellinor({"detect", known}).status, 0);
    EXPECT_EQ(rellinor({"detect", eight}).status, 1);
    EXPECT_EQ(rellinor({"detect", folder() / "missing"}).status, 1);
    const Ended ended = rellinor({"detect", folder() / "missing", known});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, (folder() / "missing") + ": unknown; there is no such file or folder\n" +
                             known + ": " + std::string(lastPassFound) + "\n");
}

TEST_F(DetectCommandTest, goesOnAfterADatabaseThatClaimsMoreMemoryThanThereIs) {
    const std::string huge = RELLINOR_FIXTURES "/huge-cell.sqlite";
    const std::string known = lastPass();
    const Ended ended = rellinor({"detect", huge, known});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, huge + ": unknown; there is not enough memory to look at it\n" + known +
                             ": " + std::string(lastPassFound) + "\n");
}

TEST_F(DetectCommandTest, showsAnOddPathOnOneLine) {
    const std::string path = lastPass("a\nb.csv");
    const Ended ended = rellinor({"detect", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(linesIn(ended.out), 1);
    EXPECT_TRUE(ended.out.contains("a␊b.csv: lastPass (certain)")) << ended.out;
}

TEST_F(DetectCommandTest, showsAnEmptyPath) {
    EXPECT_EQ(rellinor({"detect", ""}).out, "\"\": unknown; there is no such file or folder\n");
}

TEST_F(DetectCommandTest, needsAPath) {
    EXPECT_EQ(rellinor({"detect"}).status, 2);
}

// import --source auto

TEST_F(DetectCommandTest, importsTheSameAsWithTheSourceNamed) {
    const std::vector<std::vector<std::string>> samples = {
        {"chrome", "/Chrome/Login Data"},        {"dashlane", "/Dashlane/export.csv"},
        {"firefox", "/Firefox/current.profile"}, {"firefox", "/Firefox/old.profile"},
        {"keePass", "/KeePass/export.csv"},      {"keePassXC", "/KeePassXC/export.csv"},
        {"lastPass", "/LastPass/export.csv"},    {"onePassword", "/OnePassword/export.1pif"},
        {"tirel", "/Tirel/export.json"}};
    for (const std::string root : {RELLINOR_EXAMPLES, RELLINOR_VAULT}) {
        for (const auto& sample : samples) {
            const std::string path = root + sample[1];
            const auto imported = [&](const std::string& source) {
                return rellinor(
                    {"import", "--source", source, "--format", "json", "--reveal", path});
            };
            const Ended automatic = imported("auto");
            EXPECT_EQ(automatic.status, 0) << path;
            EXPECT_EQ(automatic.out, imported(sample[0]).out) << path;
            EXPECT_TRUE(
                automatic.errors.starts_with("rellinor: " + path + ": read as " + sample[0] + " ("))
                << automatic.errors;
        }
    }
}

TEST_F(DetectCommandTest, saysWhatAnImportFound) {
    const std::string path = lastPass();
    const Ended ended = rellinor({"import", "--source", "auto", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, path + ": 1 password, 0 notes, 0 cards\n");
    EXPECT_EQ(ended.errors, "rellinor: " + path + ": read as " + std::string(lastPassFound) + "\n");
}

TEST_F(DetectCommandTest, importsSeveralKindsAtOnce) {
    const std::string tirel = RELLINOR_EXAMPLES "/Tirel/export.json";
    const std::string path = lastPass();
    for (const bool keep : {false, true}) {
        std::vector<std::string> arguments = {"import", "--source", "auto", tirel, path};
        if (keep) {
            arguments.insert(arguments.begin() + 1, "--keep-importer");
        }
        const Ended ended = rellinor(arguments);
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.out, tirel + ": 6 passwords, 3 notes, 2 cards\n" + path +
                                 ": 1 password, 0 notes, 0 cards\n");
    }
}

TEST_F(DetectCommandTest, failsForAFileThatItDoesNotKnow) {
    const std::string path = folder().file("text", "some text\n");
    const Ended ended = rellinor({"import", "--source", "auto", "--format", "json", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "{\"error\":{\"domain\":\"Rellinor.UnknownFileError\",\"code\":1}}\n");
    EXPECT_EQ(ended.errors,
              "rellinor: " + path + ": not imported: unknown; nothing in it tells the source\n");
}

TEST_F(DetectCommandTest, failsWithAdviceForAFileThatItKnowsButCannotRead) {
    const std::string path =
        folder().file("eight.csv", "url,username,password,totp,extra,name,grouping,fav\n");
    const Ended ended = rellinor({"import", "--source", "auto", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.errors, "rellinor: " + path +
                                ": not imported: this looks like a LastPass export with 8 columns "
                                "instead of 7: take the column totp out\n");
}

TEST_F(DetectCommandTest, goesOnAfterAFileThatItDoesNotKnow) {
    const std::string path = lastPass();
    const Ended ended = rellinor({"import", "--source", "auto", folder() / "missing", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, path + ": 1 password, 0 notes, 0 cards\n");
    EXPECT_EQ(linesIn(ended.errors), 2);
}

// Advice

TEST_F(DetectCommandTest, proposesTheSourceOfAFileThatFailsAsAnother) {
    const std::string path = lastPass();
    const Ended ended = rellinor({"import", "--source", "tirel", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(linesIn(ended.errors), 1);
    EXPECT_TRUE(
        ended.errors.ends_with(") this looks like a LastPass export: try --source lastPass\n"))
        << ended.errors;
}

TEST_F(DetectCommandTest, warnsOfAFileThatLooksLikeAnotherThoughItIsImported) {
    const std::string path =
        folder().file("credentials.csv",
                      "username,username2,username3,title,password,note,url,category,otpSecret\n"
                      "ann,,,Mail,s3cret,,https://a.example,Work,\n");
    const Ended ended = rellinor({"import", "--source", "dashlane", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, path + ": 2 passwords, 0 notes, 0 cards\n");
    EXPECT_EQ(
        ended.errors,
        "rellinor: " + path +
            ": this looks like a Dashlane export of logins (credentials.csv): to import it, "
            "keep only the columns title, username, password, url and note, rename them to "
            "Account, Login Name, Password, Web Site and Comments, and use --source keePass\n");
}

TEST_F(DetectCommandTest, tellsToGiveTheFolderOfAProfile) {
    const std::string path = RELLINOR_EXAMPLES "/Firefox/current.profile/logins.json";
    const Ended ended = rellinor({"import", "--source", "firefox", path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.errors.ends_with(
        ") this looks like a Firefox login store (logins.json): give the folder that it is in, "
        "with --source firefox\n"))
        << ended.errors;
}

TEST_F(DetectCommandTest, isSilentWhereAFileMightBeAnother) {
    // Without names of columns it might be a LastPass export, but is read by position as well.
    const std::string path = folder().file("seven.csv", "https://a.example,b,c,d,e,f,g\n");
    const Ended ended = rellinor({"import", "--source", "dashlane", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_FALSE(ended.errors.contains("this looks like")) << ended.errors;
}

TEST_F(DetectCommandTest, takesBothForksOfKeePassForOne) {
    const std::string path = RELLINOR_EXAMPLES "/KeePassXC/export.csv";
    EXPECT_FALSE(
        rellinor({"import", "--source", "keePass", path}).errors.contains("this looks like"));
}

/// Where the advice to rename columns leads.
TEST_F(DetectCommandTest, givesAdviceThatHelps) {
    const std::string path =
        folder().file("renamed.csv", "Account,Web Site,Login Name,Password,Comments\n"
                                     "Mail,https://a.example,ann,one,\n");
    EXPECT_EQ(
        rellinor({"import", "--source", "keePass", "--format", "json", "--reveal", path}).out,
        R"({"passwords":[{"username":"ann","password":"one","url":"https://a.example",)"
        R"("service":"Mail","color":null,"note":null,"pwdChange":null}],"notes":[],"cards":[]})"
        "\n");
}

} // namespace

} // namespace Rellinor::Tests
