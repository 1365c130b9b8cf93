#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Host/StoreInspection.hpp"
#include "Tests/Host/Tool.hpp"
#include "Tests/Support/Connection.hpp"
#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

using Tests::Connection;
using Tests::database;
using Tests::Statements;
using Tests::TemporaryFolder;

constexpr const char* table = "CREATE TABLE logins (origin_url VARCHAR, username_value VARCHAR, "
                              "password_value BLOB, blacklisted_by_user INTEGER)";

/// What is said of a database with these logins: lists of URL, user name, password and whether
/// excluded.
Inspected logins(const std::string& values) {
    const TemporaryFolder folder;
    return inspected(database(folder, {table, "INSERT INTO logins VALUES " + values}),
                     ImportSource::chrome);
}

Texts leftOut(const std::string& values) {
    return texts(logins(values).inspection.leftOut);
}

Texts wrong(const Statements& statements) {
    const TemporaryFolder folder;
    return texts(inspected(database(folder, statements), ImportSource::chrome).inspection.wrong);
}

TEST(ChromeInspectionTest, countsTheRowsOfTheTable) {
    const Inspected all = logins("('u','n',x'01',0),('u','n',x'02','0'),('u','n',x'03',1)");
    EXPECT_EQ(all.inspection.unit, "login");
    EXPECT_EQ(all.inspection.place, "row");
    EXPECT_EQ(all.inspection.count, 3U);
    EXPECT_EQ(all.delivered, 2U);
    EXPECT_TRUE(all.inspection.wrong.empty());
}

TEST(ChromeInspectionTest, tellsWhyLoginsAreLeftOut) {
    EXPECT_EQ(leftOut("('u','n',x'01',1),('u','n',x'01','x')"),
              Texts{"1, 2: excluded from saving by the user"});
    EXPECT_EQ(leftOut("('u','n',x'01',NULL)"),
              Texts{"1: not told whether it was excluded from saving"});
    EXPECT_EQ(leftOut("('u','',x'01',0),('u',NULL,x'01',0)"), Texts{"1, 2: no user name"});
    EXPECT_EQ(leftOut("('','n',x'01',0)"), Texts{"1: no address"});
    EXPECT_EQ(leftOut("('u','n','',0),('u','n',NULL,0),('u','n',x'',0)"),
              Texts{"1, 2, 3: no password"});
    EXPECT_EQ(leftOut("('u','n','text',0),('u',x'41',x'01',0),(x'41','n',x'01',0),('u','n',7,0)"),
              Texts{"1, 2, 3, 4: stored in another form than Chrome's"});
}

TEST(ChromeInspectionTest, countsRowsAndNotTheirNumbers) {
    const TemporaryFolder folder;
    const std::string path =
        database(folder, {table, "INSERT INTO logins (rowid, blacklisted_by_user) VALUES (-5, 1), "
                                 "(900, 1)"});
    EXPECT_EQ(texts(inspected(path, ImportSource::chrome).inspection.leftOut),
              Texts{"1, 2: excluded from saving by the user"});
}

TEST(ChromeInspectionTest, comparesAsTheColumnsDo) {
    const TemporaryFolder folder;
    const std::string path = database(
        folder, {"CREATE TABLE logins (origin_url TEXT, username_value TEXT COLLATE RTRIM, "
                 "password_value BLOB, blacklisted_by_user TEXT)",
                 "INSERT INTO logins VALUES ('u', '   ', x'01', '0'), ('u', 'n', x'01', '0.0'), "
                 "('u', 'n', x'01', '0')"});
    const Inspected all = inspected(path, ImportSource::chrome);
    EXPECT_EQ(all.delivered, 1U);
    EXPECT_EQ(texts(all.inspection.leftOut),
              (Texts{"1: no user name", "2: excluded from saving by the user"}));
}

TEST(ChromeInspectionTest, tellsWhatIsMissing) {
    EXPECT_EQ(wrong({"CREATE TABLE x (y)"}), Texts{"there is no table logins in the database"});
    EXPECT_EQ(wrong({"CREATE TABLE logins (origin_url, username_value, blacklisted_by_user)"}),
              Texts{"the table logins has no column password_value"});
}

TEST(ChromeInspectionTest, looksIntoPlainTablesAlone) {
    const Texts refused{"logins is no plain table in this database, so it is not looked into"};
    EXPECT_EQ(wrong({"CREATE TABLE t (a)", "CREATE VIEW logins AS SELECT a FROM t"}), refused);
    EXPECT_EQ(wrong({"CREATE TABLE logins (origin_url, username_value AS (origin_url || 'x'), "
                     "password_value, blacklisted_by_user)"}),
              refused);
}

TEST(ChromeInspectionTest, doesNotCareForTheCaseOfNames) {
    EXPECT_EQ(wrong({"CREATE TABLE Logins (ORIGIN_URL, username_value, password_value, "
                     "blacklisted_by_user)"}),
              Texts());
}

TEST(ChromeInspectionTest, tellsWhatIsNoDatabase) {
    const TemporaryFolder folder;
    const auto wrongWith = [&](const std::string& path) {
        return texts(inspected(path, ImportSource::chrome).inspection.wrong);
    };
    EXPECT_EQ(wrongWith(folder.file("export.csv", std::string(600, 'x'))),
              Texts{"the file is not an SQLite database"});
    EXPECT_EQ(wrongWith(folder.file("empty", "")),
              Texts{"the file is empty: see whether the path is right"});
}

TEST(ChromeInspectionTest, makesNoFileWhereThereIsNone) {
    const TemporaryFolder folder;
    const Inspection inspection = inspect(folder / "none", ImportSource::chrome, RecordsResult());
    EXPECT_EQ(inspection.count, std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST(ChromeInspectionTest, tellsALockedDatabase) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {table});
    const Connection browser(path);
    browser.execute({"BEGIN EXCLUSIVE"});
    EXPECT_NE(Tests::rellinor({"check", "--source", "chrome", path})
                  .out.find("the database is locked: close the browser and try again"),
              std::string::npos);
}

TEST(ChromeInspectionTest, tellsThatALogCannotBeMade) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {table, "INSERT INTO logins VALUES ('u','n',x'01',0)",
                                               "PRAGMA journal_mode = WAL"});
    using enum std::filesystem::perms;
    std::filesystem::permissions(folder.path(), all & ~(owner_write | group_write | others_write));
    const auto isTold = [&] {
        return texts(inspected(path, ImportSource::chrome).inspection.wrong) ==
               Texts{"it cannot be read in a folder that may not be written to: copy it elsewhere"};
    };
    EXPECT_EXIT(Tests::exitAsNobody(isTold), testing::ExitedWithCode(0), "");
    std::filesystem::permissions(folder.path(), owner_all);
}

TEST(ChromeInspectionTest, tellsWhatChangedSinceTheImport) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {table, "INSERT INTO logins VALUES "
                                                      "('u','n',x'01',0)"});
    const Inspection inspection = inspect(path, ImportSource::chrome, RecordsResult());
    EXPECT_FALSE(inspection.count.has_value());
    EXPECT_EQ(
        texts(inspection.wrong),
        Texts{"the database was locked or changed meanwhile: close the browser and try again"});
}

/// Makes a database of many pages with some bytes of each login.
std::string manyPages(const TemporaryFolder& folder) {
    return database(folder,
                    {"PRAGMA page_size = 1024", table,
                     "WITH RECURSIVE r (a) AS (SELECT 1 UNION ALL SELECT a + 1 FROM r LIMIT 1000) "
                     "INSERT INTO logins SELECT 'u', 'n', x'01', 0 FROM r"});
}

TEST(ChromeInspectionTest, tellsHowMuchOfADamagedDatabaseCouldBeRead) {
    const TemporaryFolder folder;
    const std::string path = manyPages(folder);
    {
        std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(8192);
        file << std::string(1024, '\xFF');
    }
    const Inspected all = inspected(path, ImportSource::chrome);
    EXPECT_FALSE(all.inspection.count.has_value());
    ASSERT_TRUE(all.delivered.has_value());
    EXPECT_GT(*all.delivered, 0U);
    EXPECT_EQ(texts(all.inspection.wrong),
              Texts{"the database is damaged: only " + std::to_string(*all.delivered) +
                    " logins could be read"});
}

TEST(ChromeInspectionTest, tellsADatabaseThatWasCutShort) {
    const TemporaryFolder folder;
    const std::string path = manyPages(folder);
    std::filesystem::resize_file(path, 5000);
    EXPECT_EQ(texts(inspected(path, ImportSource::chrome).inspection.wrong),
              Texts{"the file is cut short: copy it again"});
}

TEST(ChromeInspectionTest, countsTheNotesOfLogins) {
    const TemporaryFolder folder;
    const std::string path =
        database(folder, {table, "CREATE TABLE password_notes (parent_id INTEGER, value BLOB)",
                          "INSERT INTO password_notes VALUES (1, x'01'), (1, ''), (2, NULL)"});
    EXPECT_EQ(texts(inspected(path, ImportSource::chrome).inspection.notImported),
              Texts{"1 note of logins"});
}

TEST(ChromeInspectionTest, agreesWithTheImportOfAnExample) {
    const TemporaryFolder folder;
    const std::string path = folder / "Login Data";
    std::filesystem::copy_file(RELLINOR_EXAMPLES "/Chrome/Login Data", path);
    EXPECT_EQ(inspected(path, ImportSource::chrome).inspection.count, 8U);
}

} // namespace

} // namespace Rellinor::Host
