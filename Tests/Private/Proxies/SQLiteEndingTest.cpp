#include "Private/Proxies/SQLiteEnding.hpp"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Support/Connection.hpp"
#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/SQLiteBytes.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

class SQLiteEndingTest : public testing::Test {
protected:
    [[nodiscard]] SQLiteEnding endingOf(const std::string& path) {
        SQLiteFileProxy proxy(path, _memory);
        (void)proxy.select("SELECT a FROM t");
        return proxy.ending();
    }

    [[nodiscard]] SQLiteEnding endingMadeBy(const Statements& statements) {
        const TemporaryFolder folder;
        return endingOf(database(folder, statements));
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
    ImportMemory _memory;
};

TEST_F(SQLiteEndingTest, isCompleteAfterTheLastRow) {
    EXPECT_EQ(endingMadeBy({"CREATE TABLE t (a)"}), SQLiteEnding::complete);
    EXPECT_EQ(endingMadeBy({"CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (2)"}),
              SQLiteEnding::complete);
}

TEST_F(SQLiteEndingTest, isThatOfTheLastSelect) {
    ImportMemory memory;
    SQLiteFileProxy proxy(database(folder(), {"CREATE TABLE t (a)"}), memory);
    EXPECT_EQ(proxy.ending(), SQLiteEnding::notOpened);
    (void)proxy.select("SELECT a FROM t");
    EXPECT_EQ(proxy.ending(), SQLiteEnding::complete);
    (void)proxy.select("SELECT b FROM t");
    EXPECT_EQ(proxy.ending(), SQLiteEnding::notPrepared);
}

TEST_F(SQLiteEndingTest, tellsThatThereIsNoFile) {
    EXPECT_EQ(endingOf(folder() / "missing/database"), SQLiteEnding::notOpened);
    EXPECT_EQ(endingOf(folder().path()), SQLiteEnding::notOpened);
    EXPECT_EQ(endingOf((folder() / "a") + '\0'), SQLiteEnding::notOpened);
}

TEST_F(SQLiteEndingTest, tellsThatTheFileMayNotBeRead) {
    const std::string path = database(folder(), {"CREATE TABLE t (a)"});
    std::filesystem::permissions(path, std::filesystem::perms::none);
    EXPECT_EXIT(exitAsNobody([&] { return endingOf(path) == SQLiteEnding::notOpened; }),
                testing::ExitedWithCode(0), "");
}

TEST_F(SQLiteEndingTest, tellsThatTheFileIsNoDatabase) {
    EXPECT_EQ(endingOf(folder().file("text", std::string(5000, 'x'))), SQLiteEnding::notADatabase);
}

TEST_F(SQLiteEndingTest, tellsThatThereIsNoSuchTableOrColumn) {
    EXPECT_EQ(endingOf(folder() / "missing"), SQLiteEnding::notPrepared); // which SQLite makes
    EXPECT_EQ(endingMadeBy({"CREATE TABLE u (a)"}), SQLiteEnding::notPrepared);
    EXPECT_EQ(endingMadeBy({"CREATE TABLE t (b)"}), SQLiteEnding::notPrepared);
    EXPECT_EQ(endingMadeBy({"CREATE VIEW t AS SELECT a FROM u"}), SQLiteEnding::notPrepared);
}

TEST_F(SQLiteEndingTest, tellsThatTheDatabaseIsLocked) {
    const std::string path = database(folder(), {"CREATE TABLE t (a)"});
    const Connection other(path);
    other.execute({"BEGIN EXCLUSIVE"});
    EXPECT_EQ(endingOf(path), SQLiteEnding::locked);
}

TEST_F(SQLiteEndingTest, tellsThatTheDatabaseIsDamaged) {
    const std::string path = database(
        folder(), {"CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (" + longText + "), (3)"});
    damageLongTexts(path);
    EXPECT_EQ(endingOf(path), SQLiteEnding::damaged);
    // Its schema
    std::string bytes = contentsOf(database(folder(), {"CREATE TABLE v (a)"}));
    bytes.replace(bytes.find("CREATE TABLE v"), 12, "CREATE TUBLE");
    EXPECT_EQ(endingOf(folder().file("schema", bytes)), SQLiteEnding::damaged);
    // What a view computes
    EXPECT_EQ(endingMadeBy({"CREATE VIEW t AS SELECT abs(-9223372036854775808) AS a"}),
              SQLiteEnding::damaged);
}

TEST_F(SQLiteEndingTest, tellsThatTheDatabaseIsRefused) {
    const std::string numbers = "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n) ";
    const std::string longObject = "CREATE TABLE u (a /*" + std::string(300'000, '*') + "*/)";
    for (const std::string& statement :
         {"CREATE VIEW t AS " + numbers + "SELECT v AS a FROM n",
          std::string("CREATE VIRTUAL TABLE t USING fts4(a)"), longObject,
          std::string("CREATE VIEW t AS SELECT 'a' LIKE '") + std::string(200, '%') + "' AS a",
          std::string("CREATE VIEW t AS SELECT fts5(1) AS a")}) {
        EXPECT_EQ(endingMadeBy({statement}), SQLiteEnding::refused) << statement.substr(0, 100);
    }
    // What lies beside it
    const std::string path = database(folder(), {"CREATE TABLE t (a)"});
    (void)folder().file("database-journal", journalEndNaming("x"));
    EXPECT_EQ(endingOf(path), SQLiteEnding::refused);
}

} // namespace

} // namespace Rellinor::Tests
