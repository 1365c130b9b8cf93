#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "Tests/Host/Detected.hpp"
#include "Tests/Support/Nobody.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::string_view chromeTable =
    "CREATE TABLE logins (origin_url, username_value, password_value, blacklisted_by_user);";

/// A connection that fails the test if a statement fails.
class Connection {
public:
    explicit Connection(const std::string& path) {
        EXPECT_EQ(::sqlite3_open(path.c_str(), &_connection), SQLITE_OK);
    }

    ~Connection() { ::sqlite3_close(_connection); }

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void execute(std::string_view statements) const {
        EXPECT_EQ(
            ::sqlite3_exec(_connection, std::string(statements).c_str(), nullptr, nullptr, nullptr),
            SQLITE_OK)
            << ::sqlite3_errmsg(_connection);
    }

private:
    ::sqlite3* _connection = nullptr;
};

class DetectionOfDatabasesTest : public testing::Test {
protected:
    /// Makes a database; returns its path.
    [[nodiscard]] std::string made(std::string_view statements,
                                   std::string_view name = "a b%20?c#d") const {
        const std::string path = _folder / name;
        Connection(path).execute(statements);
        return path;
    }

    /// The names of the files in the folder.
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(_folder.path())) {
            all.push_back(entry.path().filename());
        }
        return all;
    }

    [[nodiscard]] const Tests::TemporaryFolder& folder() const { return _folder; }

private:
    Tests::TemporaryFolder _folder;
};

TEST_F(DetectionOfDatabasesTest, knowsTheDatabaseOfChrome) {
    EXPECT_EQ(detectedAt(made(chromeTable)),
              "chrome (certain): Chrome login database; the table logins");
}

TEST_F(DetectionOfDatabasesTest, knowsTheSchemasThatProductsWrite) {
    EXPECT_TRUE(
        detectedAt(made(Tests::contentsOf(RELLINOR_FIXTURES "/Chrome/schema.sql"), "chrome"))
            .starts_with("chrome (certain)"));
    EXPECT_EQ(detectedAt(made(Tests::contentsOf(RELLINOR_FIXTURES "/Firefox/signons.sql"), "old")),
              "not read (certain): Firefox login database (signons.sqlite); the table moz_logins; "
              "give the folder that it is in, with --source firefox");
}

TEST_F(DetectionOfDatabasesTest, knowsTheKeysOfFirefox) {
    EXPECT_EQ(detectedAt(made("CREATE TABLE metaData (id PRIMARY KEY UNIQUE ON CONFLICT REPLACE, "
                              "item1, item2);")),
              "not read (certain): Firefox key database (key4.db); the table metaData; give the "
              "folder that it is in, with --source firefox");
}

TEST_F(DetectionOfDatabasesTest, needsEveryColumn) {
    EXPECT_EQ(detectedAt(made("CREATE TABLE logins (origin_url, username_value, password_value);")),
              "unknown; a SQLite database of another kind");
}

TEST_F(DetectionOfDatabasesTest, doesNotEvaluateAView) {
    EXPECT_EQ(detectedAt(made("CREATE VIEW logins AS SELECT 1 AS origin_url, 2 AS username_value, "
                              "3 AS password_value, 4 AS blacklisted_by_user;")),
              "unknown; a SQLite database of another kind");
}

TEST_F(DetectionOfDatabasesTest, knowsADatabaseWithoutTables) {
    EXPECT_EQ(detectedAt(made("CREATE TABLE a (b); DROP TABLE a;")),
              "unknown; a SQLite database without tables");
}

TEST_F(DetectionOfDatabasesTest, saysSoOfADatabaseThatIsDamaged) {
    EXPECT_EQ(detected(std::string_view("SQLite format 3\0 and no more", 28)),
              "unknown; a SQLite database that cannot be read");
}

TEST_F(DetectionOfDatabasesTest, saysWhyItDoesNotReadASoundSchema) {
    EXPECT_EQ(detectedAt(made("CREATE TABLE a (b CHECK (length(b) >= 0));")),
              "unknown; a SQLite database that is not read, since its schema calls functions");
}

TEST_F(DetectionOfDatabasesTest, knowsALockedDatabase) {
    const std::string path = made(chromeTable);
    const Connection other(path);
    other.execute("BEGIN EXCLUSIVE; INSERT INTO logins VALUES (1, 2, 3, 4);");
    EXPECT_TRUE(detectedAt(path).starts_with("chrome (certain)"));
}

TEST_F(DetectionOfDatabasesTest, asksToCloseWhatKeepsItsTablesBesideTheFile) {
    const std::string path = folder() / "file";
    const Connection other(path);
    other.execute("PRAGMA journal_mode = WAL;");
    other.execute(chromeTable);
    const std::string link = folder() / "link";
    std::filesystem::create_symlink(path, link);
    for (const std::string& name : {path, link}) {
        EXPECT_EQ(detectedAt(name), "unknown; a SQLite database with changes beside it; close the "
                                    "program that uses it, and try again");
    }
}

TEST_F(DetectionOfDatabasesTest, leavesNothingBeside) {
    const std::string path = made("PRAGMA journal_mode = WAL;" + std::string(chromeTable), "file");
    ASSERT_EQ(names(), std::vector<std::string>{"file"});
    const std::string before = Tests::contentsOf(path);
    EXPECT_TRUE(detectedAt(path).starts_with("chrome (certain)"));
    EXPECT_EQ(names(), std::vector<std::string>{"file"});
    EXPECT_EQ(Tests::contentsOf(path), before);
}

TEST_F(DetectionOfDatabasesTest, knowsADatabaseThatMayNotBeWritten) {
    const std::string path = made(chromeTable);
    Tests::forbidWriting(path);
    EXPECT_EXIT(
        Tests::exitAsNobody([&] { return detectedAt(path).starts_with("chrome (certain)"); }),
        testing::ExitedWithCode(0), "");
}

} // namespace

} // namespace Rellinor::Host
