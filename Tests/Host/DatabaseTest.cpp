#include "Host/Inspection/Database.hpp"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Support/Connection.hpp"
#include "Tests/Support/KnottedDatabase.hpp"
#include "Tests/Support/OtherProcess.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

using Tests::Connection;
using Tests::Statements;
using Tests::TemporaryFolder;

std::size_t rowsOf(Database& database) {
    std::size_t rows = 0;
    database.forEachRow("SELECT a FROM t", [&](const DatabaseRow& /*row*/) { ++rows; });
    return rows;
}

std::vector<std::string> namesIn(const TemporaryFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        names.push_back(entry.path().filename());
    }
    std::ranges::sort(names);
    return names;
}

/// A database that keeps its changes in a log, from a process that has closed it or that has died.
std::string loggedDatabase(const TemporaryFolder& folder) {
    return Tests::database(folder, {"PRAGMA journal_mode = WAL", "CREATE TABLE t (a)",
                                    "INSERT INTO t VALUES (1), (2)"});
}

TEST(DatabaseTest, readsRowsByTheirTypes) {
    const TemporaryFolder folder;
    Database database(Tests::database(folder, {"CREATE TABLE t (a)"}));
    std::size_t rows = 0;
    database.forEachRow("SELECT 1, 0, NULL, 'x', x'01', x''", [&](const DatabaseRow& row) {
        ++rows;
        EXPECT_TRUE(row.isTrue(0));
        EXPECT_FALSE(row.isTrue(1));
        EXPECT_FALSE(row.isTrue(2));
        EXPECT_TRUE(row.isNull(2));
        EXPECT_FALSE(row.isNull(1));
        EXPECT_TRUE(row.isText(3));
        EXPECT_EQ(row.text(3), "x");
        EXPECT_FALSE(row.isText(4));
        EXPECT_TRUE(row.isFilledBlob(4));
        EXPECT_FALSE(row.isFilledBlob(5));
        EXPECT_TRUE(row.isEmptyBlob(5));
        EXPECT_FALSE(row.isEmptyBlob(4));
    });
    EXPECT_EQ(rows, 1U);
    EXPECT_EQ(database.problem(), "");
}

TEST(DatabaseTest, cannotWrite) {
    const TemporaryFolder folder;
    Database database(Tests::database(folder, {"CREATE TABLE t (a)"}));
    database.forEachRow("INSERT INTO t VALUES (1)", [](const DatabaseRow& /*row*/) {});
    EXPECT_NE(database.problem(), "");
}

TEST(DatabaseTest, isNotHeldUpByRowsWithoutEnd) {
    const Statements oneRow = {"CREATE TABLE t (a)", "INSERT INTO t VALUES (zeroblob(2000))"};
    const TemporaryFolder one;
    Database finite(Tests::knottedDatabase(one, oneRow, 1));
    EXPECT_EQ(rowsOf(finite), 11U);
    EXPECT_EQ(finite.problem(), "");
    const TemporaryFolder other;
    Database endless(Tests::knottedDatabase(other, oneRow, 15));
    EXPECT_GT(rowsOf(endless), 11U);
    EXPECT_EQ(endless.problem(), "the database is damaged");
    EXPECT_TRUE(endless.isDamaged());
}

TEST(DatabaseTest, saysWhyItDoesNotReadASoundSchema) {
    const auto problem = [](const Statements& statements) {
        const TemporaryFolder folder;
        Database database(Tests::database(folder, statements));
        EXPECT_EQ(rowsOf(database), 0U);
        EXPECT_FALSE(database.isDamaged());
        return std::string(database.problem());
    };
    const std::string calls = "the database is not read, since its schema calls functions";
    EXPECT_EQ(problem({"CREATE TABLE t (a CHECK (length(a) >= 0))"}), calls);
    EXPECT_EQ(problem({"CREATE TABLE t (a)", "CREATE INDEX i ON t (lower(a))"}), calls);
    const std::string isLarge =
        "the database is not read, since its schema is too large or too complex";
    const std::string longName(20'000, 'n');
    EXPECT_EQ(problem({"CREATE TABLE t (a, " + longName + ")"}), isLarge);
    Statements many = {"BEGIN", "CREATE TABLE t (a)"};
    for (int table = 0; table < 1000; ++table) {
        many.push_back("CREATE TABLE t" + std::to_string(table) + " (a)");
    }
    many.emplace_back("COMMIT");
    EXPECT_EQ(problem(many), isLarge);
}

TEST(DatabaseTest, isNotHeldUpByAView) {
    const TemporaryFolder folder;
    Database database(Tests::database(
        folder,
        {"CREATE VIEW t AS WITH RECURSIVE n (a) AS (SELECT 1 UNION ALL SELECT a + 1 FROM n) "
         "SELECT a FROM n"}));
    EXPECT_EQ(rowsOf(database), 0U);
    EXPECT_EQ(database.problem(), "the database cannot be read");
}

TEST(DatabaseTest, readsALoggedDatabaseWithoutMakingFiles) {
    const TemporaryFolder folder;
    Database database(loggedDatabase(folder));
    EXPECT_EQ(rowsOf(database), 2U);
    EXPECT_EQ(namesIn(folder), std::vector<std::string>{"database"});
}

TEST(DatabaseTest, readsALoggedDatabaseOfAnyName) {
    const TemporaryFolder folder;
    const std::string path = folder / "a b%20?c#d\u00E9";
    std::filesystem::rename(loggedDatabase(folder), path);
    Database database(path);
    EXPECT_EQ(rowsOf(database), 2U);
}

TEST(DatabaseTest, readsTheLogOfAnotherProcess) {
    const TemporaryFolder folder;
    const std::string path = folder / "database";
    const Tests::OtherProcess browser([&] {
        auto* const connection = new Connection(path); // not closed before the process ends
        connection->execute({"PRAGMA journal_mode = WAL", "CREATE TABLE t (a)",
                             "INSERT INTO t VALUES (1), (2), (3)"});
    });
    Database database(path);
    EXPECT_EQ(rowsOf(database), 3U);
    EXPECT_TRUE(hasChangesBeside(path));
}

TEST(DatabaseTest, readsTheLogBesideWhatALinkLeadsTo) {
    const TemporaryFolder folder;
    const std::string path = folder / "database";
    const Tests::OtherProcess browser([&] {
        auto* const connection = new Connection(path); // not closed before the process ends
        connection->execute(
            {"PRAGMA journal_mode = WAL", "CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (2)"});
    });
    const TemporaryFolder other;
    const std::string link = other / "link";
    std::filesystem::create_symlink(path, link);
    Database database(link);
    EXPECT_EQ(rowsOf(database), 2U);
    EXPECT_TRUE(hasChangesBeside(link));
}

TEST(DatabaseTest, makesNoIndexOfALog) {
    const TemporaryFolder folder;
    const std::string path = folder / "database";
    Tests::dieAfter([&] {
        auto* const connection = new Connection(path); // not closed before the process ends
        connection->execute({"PRAGMA journal_mode = WAL", "CREATE TABLE t (a)"});
    });
    std::filesystem::remove(path + "-shm");
    const Database database(path);
    EXPECT_EQ(database.problem(), "its latest changes stand in the file -wal beside it: start and "
                                  "close the browser, then try again");
    EXPECT_EQ(namesIn(folder), (std::vector<std::string>{"database", "database-wal"}));
}

TEST(DatabaseTest, tellsThatALogMayBeMissing) {
    const TemporaryFolder folder;
    Database database(loggedDatabase(folder));
    database.requireTable("u", {});
    EXPECT_EQ(database.problem(),
              "there is no table u in the database, perhaps since its file -wal is missing");
}

TEST(DatabaseTest, doesNotWaitForAPipe) {
    const TemporaryFolder folder;
    const std::string path = Tests::database(folder, {"CREATE TABLE t (a)"});
    const TemporaryFolder other;
    std::filesystem::create_symlink(path, other / "link");
    for (const std::string suffix : {"-journal", "-wal"}) {
        const std::string pipe = path + suffix;
        ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
        for (const std::string& name : {path, other / "link"}) {
            Database database(name);
            EXPECT_EQ(rowsOf(database), 0U);
            EXPECT_EQ(database.problem(),
                      "what is called " + suffix + " beside it is no file: take it away");
        }
        std::filesystem::remove(pipe);
    }
}

TEST(DatabaseTest, leavesChangesThatWereBrokenOff) {
    const TemporaryFolder folder;
    const std::string path = Tests::database(
        folder, {"PRAGMA page_size = 1024", "CREATE TABLE t (a)",
                 "WITH RECURSIVE r (a) AS (SELECT 1 UNION ALL SELECT a + 1 FROM r LIMIT 900) "
                 "INSERT INTO t SELECT hex(zeroblob(50)) FROM r"});
    Tests::dieAfter([&] {
        auto* const connection = new Connection(path); // not closed before the process ends
        connection->execute({"PRAGMA cache_size = 1", "BEGIN", "UPDATE t SET a = 'x' || a"});
    });
    ASSERT_GT(std::filesystem::file_size(path + "-journal"), 0U);
    const auto before = Tests::contentsOf(path);
    Database database(path);
    EXPECT_EQ(rowsOf(database), 0U);
    EXPECT_EQ(database.problem(),
              "its latest changes were broken off and stand in the file "
              "-journal beside it: start and close the browser, then try again");
    EXPECT_EQ(Tests::contentsOf(path), before);
}

} // namespace

} // namespace Rellinor::Host
