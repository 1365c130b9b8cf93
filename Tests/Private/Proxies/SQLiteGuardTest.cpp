// Databases that are made to hold up whoever reads them.

#include "Private/Proxies/SQLiteGuard.hpp"

#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/KnottedDatabase.hpp"
#include "Tests/Support/OtherProcess.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Rows = std::vector<Values>;

constexpr std::string_view allOfT = "SELECT a, b FROM t WHERE a != ''";
const Rows oneRow = {{{"a", "x"}, {"b", "y"}}};
/// Takes days.
const std::string dearCall = "instr(zeroblob(200000000), zeroblob(100000000) || x''01'')";
const std::string endless = "WITH RECURSIVE n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n) ";

/// A database that the reader reads.
class SQLiteGuardTest : public testing::Test {
protected:
    /// What the query gives for a database that is made by these statements.
    Rows selected(const Statements& statements, std::string_view query = allOfT) {
        return read(database(_folder, statements), query);
    }

    /// What the query gives for a database. Ends the process if that takes ten minutes: seconds
    /// are enough for all that is not held up.
    Rows read(const std::string& path, std::string_view query = allOfT) {
        constexpr unsigned int mostSeconds = 600;

        const std::string before = contentsOf(path);
        ::alarm(mostSeconds);
        Rows rows = copyOf(SQLiteFileProxy(path, _memory).select(query));
        ::alarm(0);
        EXPECT_EQ(contentsOf(path), before);
        return rows;
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
    ImportMemory _memory;
};

// What is not read

TEST_F(SQLiteGuardTest, readsNoView) {
    EXPECT_EQ(selected({"CREATE TABLE u (a, b)", "INSERT INTO u VALUES ('x', 'y')",
                        "CREATE VIEW t AS SELECT a, b FROM u"}),
              Rows{});
}

TEST_F(SQLiteGuardTest, isNotHeldUpByAViewWithoutEnd) {
    EXPECT_EQ(selected({"CREATE VIEW t AS " + endless + "SELECT v AS a, v AS b FROM n"}), Rows{});
    EXPECT_EQ(read(folder() / "database", "SELECT a FROM t WHERE a < 0"), Rows{});
    EXPECT_EQ(read(folder() / "database", "SELECT a FROM T"), Rows{});
}

TEST_F(SQLiteGuardTest, readsNoVirtualTable) {
    EXPECT_EQ(
        selected({"CREATE VIRTUAL TABLE t USING fts4(a, b)", "INSERT INTO t VALUES ('x', 'y')"}),
        Rows{});
}

TEST_F(SQLiteGuardTest, readsNoVirtualTableOfAnyCase) {
    EXPECT_EQ(selected({"CREATE VIRTUAL TABLE \"T\" USING fts4(a, b)",
                        "INSERT INTO t VALUES ('x', 'y')"}),
              Rows{});
}

TEST_F(SQLiteGuardTest, readsNoVirtualTableWhateverTheSchemaCallsIt) {
    for (const std::string disguise : {"rootpage = 2", "type = 'TABLE'", "name = 't' || char(0)"}) {
        const TemporaryFolder other;
        EXPECT_EQ(
            read(database(other, {"CREATE VIRTUAL TABLE t USING fts4(a, b)",
                                  "INSERT INTO t VALUES ('x', 'y')", "PRAGMA writable_schema = ON",
                                  "UPDATE sqlite_master SET " + disguise + " WHERE name = 't'"})),
            Rows{})
            << disguise;
    }
}

TEST_F(SQLiteGuardTest, isNotHeldUpByWhatAVirtualTableIsMadeOf) {
    EXPECT_EQ(selected({"CREATE VIRTUAL TABLE t USING fts5(a, b)", "PRAGMA writable_schema = ON",
                        "UPDATE sqlite_master SET sql = 'CREATE TABLE t_config(k PRIMARY KEY, q, "
                        "v AS (" +
                            dearCall + ")) WITHOUT ROWID' WHERE name = 't_config'"}),
              Rows{});
}

TEST_F(SQLiteGuardTest, isNotHeldUpByStatisticsThatAreComputed) {
    for (const std::string& call : {dearCall, std::string("hex(tbl)")}) {
        const TemporaryFolder other;
        const std::string path = database(
            other, {"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('x', 'y')",
                    "CREATE TABLE u (tbl, idx)", "INSERT INTO u VALUES ('t', NULL)",
                    "PRAGMA writable_schema = ON",
                    "UPDATE sqlite_master SET name = 'sqlite_stat1', tbl_name = 'sqlite_stat1', "
                    "sql = 'CREATE TABLE sqlite_stat1(tbl, idx, stat AS (" +
                        call + "))' WHERE name = 'u'"});
        EXPECT_EQ(read(path), Rows{}) << call;
    }
}

TEST_F(SQLiteGuardTest, readsATableWithHonestStatistics) {
    EXPECT_EQ(selected({"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('x', 'y')",
                        "CREATE INDEX i ON t (a)", "ANALYZE"}),
              oneRow);
}

TEST_F(SQLiteGuardTest, fillsNoMemoryWithColumnsThatAreComputedOfEachOther) {
    std::string columns = "a AS (c0)";
    for (int column = 1; column <= 20; ++column) {
        const std::string before = "c" + std::to_string(column - 1);
        columns += ", c" + std::to_string(column) + " AS (" + before + " || " + before + ")";
    }
    const std::string path =
        database(folder(), {"CREATE TABLE t (b, c0, " + columns + ")", "CREATE TABLE u (a)"});
    EXPECT_THROW((void)read(path, "SELECT c20 FROM t"), std::bad_alloc);
    EXPECT_THROW((void)read(path, "SELECT c14 FROM t"), std::bad_alloc);
    EXPECT_EQ(read(path, "SELECT c13 FROM t"), Rows{}); // computed, but not out of hand
    EXPECT_EQ(read(path, "SELECT a FROM u"), Rows{});
}

TEST_F(SQLiteGuardTest, isNotHeldUpByALongStatement) {
    std::string columns = "a, b";
    for (int constraint = 0; constraint < 30'000; ++constraint) {
        columns += ", UNIQUE (a, b, a)";
    }
    EXPECT_EQ(selected({"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('x', 'y')",
                        "CREATE TABLE u (a)", "PRAGMA writable_schema = ON",
                        "UPDATE sqlite_master SET sql = 'CREATE TABLE u (" + columns +
                            ")' WHERE name = 'u'"}),
              Rows{});
}

TEST_F(SQLiteGuardTest, readsASchemaWithAnObjectOfSixteenThousandBytesAndNotOfSeventeen) {
    const auto withComment = [&](std::size_t size) {
        const TemporaryFolder other;
        return read(database(other, {"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('x', 'y')",
                                     "CREATE TABLE u (v /*" + std::string(size, '*') + "*/)"}),
                    allOfT);
    };
    EXPECT_EQ(withComment(16'000), oneRow);
    EXPECT_EQ(withComment(17'000), Rows{});
}

TEST_F(SQLiteGuardTest, readsASchemaOfAHundredObjectsAndNotOfAThousand) {
    Statements statements = {"PRAGMA synchronous = OFF", "BEGIN", "CREATE TABLE t (a, b)",
                             "INSERT INTO t VALUES ('x', 'y')"};
    const auto withTables = [&](int count) {
        const TemporaryFolder other;
        for (; count > 0; --count) {
            statements.push_back("CREATE TABLE t" + std::to_string(statements.size()) + " (v)");
        }
        Statements all = statements;
        all.emplace_back("COMMIT");
        return read(database(other, all));
    };
    EXPECT_EQ(withTables(100), oneRow);
    EXPECT_EQ(withTables(900), Rows{});
}

TEST_F(SQLiteGuardTest, isNotHeldUpByAColumnThatIsComputedAsItIsRead) {
    const std::string path = database(
        folder(),
        {"CREATE TABLE t (c, a AS (CASE c WHEN 'dear!' THEN instr(hex(zeroblob(90000000)), "
         "hex(zeroblob(40000000)) || '1') ELSE 'x' END), b AS ('y'))",
         "INSERT INTO t VALUES ('cheap')"});
    std::string bytes = contentsOf(path);
    bytes.replace(bytes.find("cheap"), 5, "dear!");
    EXPECT_EQ(read(folder().file("database", bytes)), Rows{});
}

TEST_F(SQLiteGuardTest, readsNoColumnThatIsComputedOfThoseThatItComputes) {
    EXPECT_EQ(selected({"CREATE TABLE t (a, B AS (c), c AS (a))", "INSERT INTO t VALUES ('x')"}),
              Rows{});
    EXPECT_EQ(read(folder() / "database", "SELECT a FROM t WHERE b = ''"), Rows{});
}

TEST_F(SQLiteGuardTest, readsATableWithAComputedColumnThatIsNotAskedFor) {
    EXPECT_EQ(selected({"CREATE TABLE t (a, b, c AS (a || b))", "INSERT INTO t VALUES ('x', 'y')"}),
              oneRow);
}

TEST_F(SQLiteGuardTest, readsAComputedColumnThatIsStored) {
    EXPECT_EQ(selected({"CREATE TABLE t (a, b AS ('y') STORED)", "INSERT INTO t VALUES ('x')"}),
              oneRow);
}

TEST_F(SQLiteGuardTest, mindsNoOtherTable) {
    EXPECT_EQ(
        selected({"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('x', 'y')",
                  "CREATE TABLE c (a, b AS (a))", "CREATE VIEW v AS " + endless + "SELECT v FROM n",
                  "CREATE VIRTUAL TABLE w USING fts4(a)"}),
        oneRow);
}

TEST_F(SQLiteGuardTest, looksThroughQuotesInNames) {
    EXPECT_EQ(selected({"CREATE TABLE \"o'clock\" (a, b AS ('y'))",
                        "INSERT INTO \"o'clock\" VALUES ('x')"},
                       "SELECT b FROM \"o'clock\""),
              Rows{});
    Connection(folder() / "database")
        .execute({"CREATE TABLE \"'\" (a)", "INSERT INTO \"'\" VALUES ('x')"});
    EXPECT_EQ(read(folder() / "database", "SELECT a FROM \"'\""), (Rows{{{"a", "x"}}}));
}

// What does no harm

TEST_F(SQLiteGuardTest, readsATableWithTriggersAndIndexes) {
    EXPECT_EQ(selected({"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('x', 'y')",
                        "CREATE TRIGGER r AFTER INSERT ON t BEGIN DELETE FROM t; END",
                        "CREATE INDEX i ON t (a || b)", "CREATE INDEX j ON t (a) WHERE b > ''",
                        "CREATE UNIQUE INDEX k ON t (b, a)"}),
              oneRow);
}

TEST_F(SQLiteGuardTest, readsATableWithoutRowNumbers) {
    EXPECT_EQ(selected({"CREATE TABLE t (a PRIMARY KEY, b) WITHOUT ROWID",
                        "INSERT INTO t VALUES ('x', 'y')"}),
              oneRow);
}

TEST_F(SQLiteGuardTest, readsWhatSQLiteItselfKnows) {
    EXPECT_EQ(selected({"CREATE TABLE t (a)"}, "SELECT name FROM sqlite_master"),
              (Rows{{{"name", "t"}}}));
}

TEST_F(SQLiteGuardTest, readsEveryRowOfAnHonestDatabase) {
    // Rows as small as can be, of which none, or each, is given.
    const std::string path = database(
        folder(), {"CREATE TABLE t (a, b)",
                   "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 200000) "
                   "INSERT INTO t SELECT 0, '' FROM n"});
    EXPECT_EQ(read(path, "SELECT a FROM t WHERE b != ''"), Rows{});
    EXPECT_EQ(read(path, "SELECT a, b FROM t WHERE a = 0 AND a IS NOT NULL AND a != '' AND b IS "
                         "NOT NULL AND b = ''")
                  .size(),
              200'000U);
}

TEST_F(SQLiteGuardTest, readsEveryRowOfAnHonestDatabaseOfManyPages) {
    const std::string path = database(
        folder(), {"PRAGMA page_size = 512", "CREATE TABLE t (a, b)",
                   "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 30000) "
                   "INSERT INTO t SELECT hex(zeroblob(200)), 'y' FROM n"});
    EXPECT_EQ(read(path).size(), 30'000U);
}

TEST_F(SQLiteGuardTest, readsEveryRowThatStandsInALog) {
    const std::string path = folder() / "database";
    const OtherProcess browser([&] {
        auto* const connection = new Connection(path); // not closed before the process ends
        connection->execute({"PRAGMA journal_mode = WAL", "PRAGMA wal_autocheckpoint = 0",
                             "CREATE TABLE t (a, b)",
                             "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 100) "
                             "INSERT INTO t SELECT 'x', hex(zeroblob(50000)) FROM n"});
    });
    ASSERT_LT(contentsOf(path).size(), 10'000);
    EXPECT_EQ(read(path).size(), 100U);
}

TEST_F(SQLiteGuardTest, readsLargeTextsAndBytes) {
    const Rows rows =
        selected({"CREATE TABLE t (a, b)", "INSERT INTO t VALUES (hex(zeroblob(15000000)), "
                                           "zeroblob(30000000))"});
    ASSERT_EQ(rows.size(), 1U);
    const Value& bytes = rows[0].at("b");
    ASSERT_TRUE(std::holds_alternative<Blob>(bytes));
    EXPECT_EQ(std::get<Blob>(bytes).bytes.size(), 30'000'000U);
}

TEST_F(SQLiteGuardTest, readsLargeTextsThatTakeMoreBytesOnceTheyAreUTF8) {
    std::string bytes = "x'";
    std::string repaired;
    for (std::size_t count = 0; count < 500'000; ++count) {
        bytes += "FF";
        repaired += "\uFFFD";
    }
    const Rows rows = selected(
        {"CREATE TABLE t (a, b)", "INSERT INTO t VALUES (CAST(" + bytes + "' AS TEXT), 'y')"});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].at("a"), Value(repaired));
}

// Knots

class KnottedDatabaseTest : public SQLiteGuardTest {
protected:
    /// A table with a row of this value, the more often the more levels it has.
    [[nodiscard]] static std::string knotted(std::size_t levels, const std::string& value,
                                             const TemporaryFolder& folder) {
        return knottedDatabase(
            folder, {"CREATE TABLE t (a, b)", "INSERT INTO t VALUES (" + value + ", 'y')"}, levels);
    }

    [[nodiscard]] std::string knotted(std::size_t levels, const std::string& value) const {
        return knotted(levels, value, folder());
    }
};

TEST_F(KnottedDatabaseTest, isReadIfItsRowsEnd) {
    EXPECT_EQ(read(knotted(2, "'x'")).size(), 121U);
}

TEST_F(KnottedDatabaseTest, holdsNobodyUpWithoutRows) {
    EXPECT_EQ(read(knotted(15, "''")), Rows{});
}

TEST_F(KnottedDatabaseTest, holdsNobodyUpWithRows) {
    const Rows rows = read(knotted(15, "'x'"));
    EXPECT_GT(rows.size(), 100U);
    EXPECT_EQ(rows[99], oneRow[0]);
}

TEST_F(KnottedDatabaseTest, holdsNobodyUpWithValuesOfManyPages) {
    EXPECT_EQ(read(knotted(15, "zeroblob(1000000)"), "SELECT b FROM t WHERE a = ''"), Rows{});
}

TEST_F(KnottedDatabaseTest, fillsNoMemoryWithLargeRows) {
    for (const std::string value : {"zeroblob(2000)", "hex(zeroblob(1000))"}) {
        const TemporaryFolder other;
        const Rows rows = read(knotted(15, value, other), "SELECT a FROM t");
        EXPECT_GT(rows.size(), 1U) << value;
        EXPECT_LT(rows.size(), 100U) << value;
    }
}

TEST_F(KnottedDatabaseTest, isNotLeftLocked) {
    const std::string path = knotted(15, "zeroblob(2000)");
    EXPECT_LT(read(path, "SELECT a FROM t").size(), 100U);
    EXPECT_EQ(read(path, "SELECT a FROM t WHERE a = ''"), Rows{});
    Connection(path).execute({"BEGIN EXCLUSIVE", "COMMIT"});
}

TEST_F(SQLiteGuardTest, letsASchemaRunAndChangeNothing) {
    ::sqlite3* opened = nullptr;
    ASSERT_EQ(::sqlite3_open(":memory:", &opened), SQLITE_OK);
    const std::unique_ptr<::sqlite3, decltype(&::sqlite3_close)> connection(opened,
                                                                            &::sqlite3_close);
    const SQLiteGuard guard(*connection, 0);
    const auto isOn = [&](int option) {
        int value = -1;
        (void)::sqlite3_db_config(connection.get(), option, -1, &value); // NOLINT(*-vararg)
        return value;
    };
    EXPECT_EQ(isOn(SQLITE_DBCONFIG_ENABLE_VIEW), 0);
    EXPECT_EQ(isOn(SQLITE_DBCONFIG_ENABLE_TRIGGER), 0);
    EXPECT_EQ(isOn(SQLITE_DBCONFIG_TRUSTED_SCHEMA), 0);
    EXPECT_EQ(isOn(SQLITE_DBCONFIG_DEFENSIVE), 1);
    EXPECT_EQ(isOn(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE), 1);
}

// The file

TEST_F(SQLiteGuardTest, leavesALogWhereItIs) {
    const std::string path = folder() / "database";
    dieAfter([&] {
        auto* const connection = new Connection(path); // not closed before the process ends
        connection->execute({"PRAGMA journal_mode = WAL", "CREATE TABLE u (a)"});
    });
    const std::string log = contentsOf(path + "-wal");
    ASSERT_NE(log, "");
    EXPECT_EQ(read(path), Rows{}); // there is no such table
    EXPECT_EQ(contentsOf(path + "-wal"), log);
}

} // namespace

} // namespace Rellinor::Tests
