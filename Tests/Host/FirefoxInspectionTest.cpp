#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Host/StoreInspection.hpp"
#include "Tests/Support/Connection.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

using Tests::Connection;
using Tests::Statements;
using Tests::TemporaryFolder;

Inspected profile(const TemporaryFolder& folder) {
    return inspected(folder.path(), ImportSource::firefox);
}

Inspected loginsFile(std::string_view contents) {
    const TemporaryFolder folder;
    folder.file("logins.json", contents);
    return profile(folder);
}

Texts wrong(std::string_view contents) {
    return texts(loginsFile(contents).inspection.wrong);
}

Inspected signons(const Statements& statements) {
    const TemporaryFolder folder;
    Connection(folder / "signons.sqlite").execute(statements);
    return profile(folder);
}

constexpr std::string_view login =
    R"({"hostname":"h","encryptedUsername":"u","encryptedPassword":"p"})";
constexpr std::string_view table =
    "CREATE TABLE moz_logins (id INTEGER PRIMARY KEY, hostname, encryptedUsername, "
    "encryptedPassword)";

std::string list(std::string_view logins) {
    return "{\"logins\":[" + std::string(logins) + "]}";
}

TEST(FirefoxInspectionTest, countsTheLoginsOfTheFile) {
    const Inspected all = loginsFile(list(std::string(login) + ',' + std::string(login)));
    EXPECT_EQ(all.inspection.unit, "login");
    EXPECT_EQ(all.inspection.place, "login");
    EXPECT_EQ(all.inspection.count, 2U);
    EXPECT_TRUE(all.inspection.leftOut.empty());
    EXPECT_TRUE(all.inspection.wrong.empty());
}

TEST(FirefoxInspectionTest, tellsWhatALoginOfTheFileLacks) {
    const Inspected all =
        loginsFile(list(std::string(login) + R"(,{"hostname":"h","encryptedUsername":"u"},)"
                                             R"({"encryptedUsername":"u","encryptedPassword":"p"},)"
                                             R"({"hostname":"h","encryptedUsername":5}, {})"));
    EXPECT_EQ(texts(all.inspection.leftOut),
              (Texts{"2: encryptedPassword is missing", "3, 5: hostname is missing",
                     "4: encryptedUsername is not a text"}));
    EXPECT_EQ(all.inspection.count, 5U);
}

TEST(FirefoxInspectionTest, tellsDeletedLogins) {
    const Inspected all =
        loginsFile(list(R"({"deleted":true},{"hostname":"h","encryptedUsername":"u",)"
                        R"("encryptedPassword":"p","deleted":true})"));
    EXPECT_EQ(texts(all.inspection.leftOut),
              Texts{"1: deleted in Firefox: only its trace is left"});
    EXPECT_EQ(texts(all.inspection.wrong),
              Texts{"2: deleted in Firefox, but imported all the same"});
}

TEST(FirefoxInspectionTest, tellsAFileThatGivesNothing) {
    EXPECT_EQ(wrong("[]"), Texts{"logins.json has no list of logins"});
    EXPECT_EQ(wrong("{\"logins\":5}"), Texts{"logins.json has no list of logins"});
    EXPECT_EQ(wrong("{\n\"logins\":[}"),
              Texts{"2: the JSON is broken here; nothing of logins.json arrives"});
    EXPECT_EQ(wrong(""), Texts{"the file is empty; nothing of logins.json arrives"});
}

TEST(FirefoxInspectionTest, tellsTheEntryThatIsNotAnObject) {
    const Inspected all = loginsFile(list(std::string(login) + ",5"));
    EXPECT_EQ(all.delivered, 0U);
    EXPECT_FALSE(all.inspection.count.has_value());
    EXPECT_EQ(texts(all.inspection.wrong),
              Texts{"2: not an object, so that no login of logins.json arrives"});
}

TEST(FirefoxInspectionTest, tellsThatALoginsFileIsAFolder) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "logins.json");
    EXPECT_EQ(texts(profile(folder).inspection.wrong),
              Texts{"logins.json is not a file that can be read"});
}

TEST(FirefoxInspectionTest, countsTheLoginsOfTheDatabase) {
    const Inspected all =
        signons({std::string(table), "INSERT INTO moz_logins VALUES (1,'h','u','p'), "
                                     "(2,NULL,'u','p'), (3,'h',x'01','p'), (4,'h','u',NULL)"});
    EXPECT_EQ(all.inspection.count, 4U);
    EXPECT_EQ(texts(all.inspection.leftOut),
              (Texts{"2: hostname is missing", "3: encryptedUsername is not a text",
                     "4: encryptedPassword is missing"}));
}

TEST(FirefoxInspectionTest, tellsADatabaseOfAnotherKind) {
    EXPECT_EQ(texts(signons({"CREATE TABLE x (y)"}).inspection.wrong),
              Texts{"there is no table moz_logins in the database"});
    const TemporaryFolder folder;
    folder.file("signons.sqlite", std::string(600, 'x'));
    EXPECT_EQ(texts(profile(folder).inspection.wrong), Texts{"the file is not an SQLite database"});
}

TEST(FirefoxInspectionTest, tellsThatTheNewerStoreIsRead) {
    const TemporaryFolder folder;
    folder.file("logins.json", list(login));
    Connection(folder / "signons.sqlite").execute({std::string(table)});
    const Inspected all = profile(folder);
    EXPECT_EQ(texts(all.inspection.wrong), Texts());
    EXPECT_EQ(texts(all.inspection.notImported),
              Texts{"signons.sqlite, since logins.json beside it is read"});
}

TEST(FirefoxInspectionTest, warnsOfAnOlderStoreIfTheNewerGaveNothing) {
    const TemporaryFolder folder;
    folder.file("logins.json", list(""));
    Connection(folder / "signons.sqlite").execute({std::string(table)});
    EXPECT_EQ(texts(profile(folder).inspection.wrong),
              Texts{"logins.json gave no login, and signons.sqlite beside it is not read"});
}

TEST(FirefoxInspectionTest, tellsAFolderThatIsNoProfile) {
    const TemporaryFolder folder;
    EXPECT_EQ(texts(profile(folder).inspection.wrong),
              Texts{"neither logins.json nor signons.sqlite can be read in the folder: "
                    "about:support in Firefox shows the right one"});
}

TEST(FirefoxInspectionTest, tellsThatTheFolderIsToBeGiven) {
    const TemporaryFolder folder;
    const std::string path = folder.file("logins.json", list(login));
    EXPECT_EQ(texts(inspected(path, ImportSource::firefox).inspection.wrong),
              Texts{"it is a file: give the profile folder that it is in"});
    EXPECT_EQ(texts(inspected(folder / "none", ImportSource::firefox).inspection.wrong),
              Texts{"there is no such folder"});
}

} // namespace

} // namespace Rellinor::Host
