// Databases that are made to hold up whoever reads them.

#include "Private/Proxies/SQLiteGuard.hpp"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include "Platform/ThreadTime.hpp"
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
const std::string tableT = "CREATE TABLE t (a, b)";
const std::string rowOfT = "INSERT INTO t VALUES ('x', 'y')";
const std::string tableU = "CREATE TABLE u (x)";
const std::string rowOfU = "INSERT INTO u VALUES ('x')";
const std::string endless = "WITH RECURSIVE n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n) ";

/// A text, so many times.
std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (; count > 0; --count) {
        all += text;
    }
    return all;
}

/// Statements that make a text of a schema what nobody can write.
Statements made(const std::string& table, const std::string& text) {
    return {"PRAGMA writable_schema = ON",
            "UPDATE sqlite_master SET sql = '" + text + "' WHERE name = '" + table + "'"};
}

Statements operator+(Statements first, const Statements& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// A database that the reader reads.
class SQLiteGuardTest : public testing::Test {
protected:
    /// What the query gives for a database that is made by these statements.
    Rows selected(const Statements& statements, std::string_view query = allOfT) {
        const TemporaryFolder folder;
        return read(database(folder, statements), query);
    }

    /// What the query gives for a database. Ends the process if that takes ten minutes: seconds
    /// are enough for all that is not held up.
    Rows read(const std::string& path, std::string_view query = allOfT) {
        constexpr unsigned int mostSeconds = 600;

        const std::string before = contentsOf(path);
        SQLiteFileProxy proxy(path, _memory);
        ::alarm(mostSeconds);
        const SQLiteRows rows = proxy.select(query);
        ::alarm(0);
        _ending = proxy.ending();
        EXPECT_EQ(contentsOf(path), before);
        return copyOf(rows);
    }

    /// How the last database ended that was read.
    [[nodiscard]] SQLiteEnding ending() const { return _ending; }

    /// Whether a small database is given up that is made by these statements, in seconds and
    /// without much memory.
    testing::AssertionResult isRefused(const Statements& statements) {
        constexpr auto mostTime = std::chrono::seconds(20);
        constexpr ::sqlite3_int64 mostMemory = 600'000'000;

        const TemporaryFolder folder;
        const std::string path = database(folder, statements);
        (void)::sqlite3_memory_highwater(1);
        const ::sqlite3_int64 memory = ::sqlite3_memory_used();
        const auto begin = threadTime();
        SQLiteFileProxy proxy(path, _memory);
        (void)proxy.select("SELECT a FROM t");
        const auto time = threadTime() - begin;
        const ::sqlite3_int64 most = ::sqlite3_memory_highwater(0) - memory;
        if (proxy.ending() == SQLiteEnding::refused && time < mostTime && most < mostMemory) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure()
               << statements.back().substr(0, 200) << " ended with "
               << static_cast<int>(proxy.ending()) << " after "
               << std::chrono::duration<double>(time).count() << " s, with " << most << " bytes";
    }

    /// The same for a view of what a SELECT gives.
    testing::AssertionResult isRefusedAsView(const std::string& select) {
        return isRefused({tableU, rowOfU, "CREATE VIEW t AS " + select});
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
    ImportMemory _memory;
    SQLiteEnding _ending = SQLiteEnding::notOpened;
};

// What computes, and is read

TEST_F(SQLiteGuardTest, readsAView) {
    EXPECT_EQ(selected({"CREATE TABLE u (a, b)", "INSERT INTO u VALUES ('x', 'y')",
                        "CREATE VIEW t AS SELECT a, b FROM u"}),
              oneRow);
    EXPECT_EQ(selected({"CREATE TABLE u (a, b)", "INSERT INTO u VALUES ('x', 'y')",
                        "CREATE VIEW \"the view\" (n, m) AS WITH [w 1] AS (SELECT a, b FROM u) "
                        "SELECT upper(a), b || (SELECT count(*) FROM u) FROM [w 1]",
                        "CREATE VIEW T AS SELECT lower(n) AS a, substr(m, 1, 1) AS b "
                        "FROM `the view`"}),
              oneRow);
    EXPECT_EQ(ending(), SQLiteEnding::complete);
}

TEST_F(SQLiteGuardTest, readsColumnsThatAreComputed) {
    EXPECT_EQ(selected({"CREATE TABLE t (c, a AS (c), b AS (lower(c) || d) STORED, "
                        "d AS (CASE c WHEN 'x' THEN '' ELSE c END))",
                        "INSERT INTO t (c) VALUES ('x')"},
                       "SELECT a, upper(b) AS b FROM t"),
              (Rows{{{"a", "x"}, {"b", "X"}}}));
    EXPECT_EQ(selected({"CREATE TABLE t (a, B AS (c), c AS (a))", "INSERT INTO t VALUES ('x')"}),
              (Rows{{{"a", "x"}, {"B", "x"}}}));
    EXPECT_EQ(selected({"CREATE TABLE \"o'clock\" (a, b AS (a || 'y'))",
                        "INSERT INTO \"o'clock\" VALUES ('x')"},
                       "SELECT b FROM \"o'clock\""),
              (Rows{{{"b", "xy"}}}));
}

TEST_F(SQLiteGuardTest, readsATableBesideWhatComputes) {
    for (const std::string statement :
         {"CREATE TABLE o (x DEFAULT (datetime('now')))",
          "CREATE TABLE o (x CHECK (length(trim(x, ' ')) > 0 AND x NOT LIKE '%!%'))",
          "CREATE TABLE o (x, y AS (json_extract(x, '$.y')), CHECK (json_valid(x)))",
          "CREATE TABLE o (x DEFAULT -1)", "CREATE INDEX i ON t (substr(a, 1, 1), b)",
          "CREATE INDEX i ON t (b, a || 'x') WHERE a IS NOT NULL AND length(b) > 0",
          "CREATE TRIGGER r AFTER INSERT ON t BEGIN DELETE FROM t WHERE instr(a, 'x') > 0; END",
          "CREATE VIEW v AS SELECT replace(a, 'x', 'y') FROM t", "CREATE TABLE reviews (a)",
          "CREATE VIRTUAL TABLE w USING fts4(a)"}) {
        EXPECT_EQ(selected({tableT, rowOfT, statement}), oneRow) << statement;
    }
    EXPECT_EQ(selected({tableT, rowOfT, "CREATE VIEW v AS " + endless + "SELECT v FROM n"}),
              oneRow);
}

TEST_F(SQLiteGuardTest, readsThroughFunctionsThatSQLiteTakesForUnsafe) {
    EXPECT_EQ(selected({"CREATE TABLE t (c, a AS (json_extract(c, '$.a')), b AS (c ->> '$.b'))",
                        R"(INSERT INTO t VALUES ('{"a":"x","b":"y"}'))"}),
              oneRow);
    EXPECT_TRUE(isRefusedAsView("SELECT json(x) || fts5(x) AS a FROM u"));
    EXPECT_TRUE(isRefusedAsView("SELECT json(name) AS a FROM pragma_table_info('u')"));
}

TEST_F(SQLiteGuardTest, readsASchemaWithALongObject) {
    for (const std::size_t size : {17'000UZ, 200'000UZ}) {
        EXPECT_EQ(selected({tableT, rowOfT, "CREATE TABLE u (v /*" + times(size, "*") + "*/)"}),
                  oneRow);
    }
    EXPECT_TRUE(isRefused({tableT, rowOfT, "CREATE TABLE u (v /*" + times(300'000, "*") + "*/)"}));
}

TEST_F(SQLiteGuardTest, readsASchemaOfManyObjects) {
    Statements statements = {"BEGIN", tableT, rowOfT};
    while (statements.size() < 1000) {
        statements.push_back("CREATE TABLE t" + std::to_string(statements.size()) +
                             " (v DEFAULT (abs(-1)))");
    }
    EXPECT_EQ(selected(statements + Statements{"COMMIT"}), oneRow);
}

TEST_F(SQLiteGuardTest, readsAWideTable) {
    std::string columns;
    for (int column = 0; column < 500; ++column) {
        columns += ", c" + std::to_string(column);
    }
    EXPECT_EQ(selected({"CREATE TABLE t (a, b" + columns + ")",
                        "INSERT INTO t (a, b) VALUES ('x', 'y')"}),
              oneRow);
}

// What is not read

TEST_F(SQLiteGuardTest, readsNoVirtualTable) {
    for (const std::string name : {"t", "\"T\""}) {
        EXPECT_EQ(selected({"CREATE VIRTUAL TABLE " + name + " USING fts4(a, b)", rowOfT}), Rows{});
        EXPECT_EQ(ending(), SQLiteEnding::refused);
    }
}

TEST_F(SQLiteGuardTest, readsNoVirtualTableWhateverTheSchemaCallsIt) {
    for (const std::string disguise : {"rootpage = 2", "type = 'TABLE'", "name = 't' || char(0)"}) {
        EXPECT_EQ(selected({"CREATE VIRTUAL TABLE t USING fts4(a, b)", rowOfT,
                            "PRAGMA writable_schema = ON",
                            "UPDATE sqlite_master SET " + disguise + " WHERE name = 't'"}),
                  Rows{})
            << disguise;
    }
}

TEST_F(SQLiteGuardTest, isNotHeldUpByWhatAVirtualTableIsMadeOf) {
    EXPECT_TRUE(isRefused(Statements{"CREATE VIRTUAL TABLE t USING fts5(a, b)"} +
                          made("t_config", "CREATE TABLE t_config(k PRIMARY KEY, q, v AS "
                                           "(instr(zeroblob(200000000), zeroblob(100000000) || "
                                           "x''01''))) WITHOUT ROWID")));
}

TEST_F(SQLiteGuardTest, readsNoStatisticsThatAreComputed) {
    for (const std::string& stat :
         {std::string("instr(zeroblob(200000000), zeroblob(100000000) || x''01'')"),
          std::string("hex(tbl)"), times(900, "1 + ") + "1"}) {
        EXPECT_TRUE(isRefused(
            Statements{tableT, rowOfT, "CREATE TABLE u (tbl, idx)", "INSERT INTO u VALUES ('t', 1)",
                       "PRAGMA writable_schema = ON",
                       "UPDATE sqlite_master SET name = 'sqlite_stat1', tbl_name = 'sqlite_stat1', "
                       "sql = 'CREATE TABLE sqlite_stat1(tbl, idx, stat AS (" +
                           stat + "))' WHERE name = 'u'"}));
    }
}

// What takes long, memory or stack before the first step

TEST_F(SQLiteGuardTest, isNotHeldUpByWhatIsNamedTwiceAgainAndAgain) {
    std::string tables = "c0 AS (SELECT 1 AS a)";
    Statements views = {"CREATE VIEW v0 AS SELECT 1 AS a"};
    Statements columns = {tableU, "CREATE VIEW v0 AS SELECT x AS a FROM u"};
    for (int level = 1; level <= 60; ++level) {
        const std::string name = std::to_string(level);
        const std::string below = std::to_string(level - 1);
        tables += ", c" + name + " AS (SELECT 1 AS a FROM c" + below + ", c" + below + ")";
        views.push_back("CREATE VIEW v" + name + " AS SELECT 1 AS a FROM v" + below + ", v" +
                        below);
        columns.push_back("CREATE VIEW v" + name + " AS SELECT a + a AS a FROM v" + below);
    }
    EXPECT_TRUE(isRefused({"CREATE VIEW t AS WITH " + tables + " SELECT a FROM c60"}));
    EXPECT_TRUE(isRefused(views + Statements{"CREATE VIEW t AS SELECT a FROM v60"}));
    EXPECT_TRUE(isRefused(columns + Statements{"CREATE VIEW t AS SELECT a FROM v60"}));
}

TEST_F(SQLiteGuardTest, isNotHeldUpByAllColumnsOfManyTables) {
    std::string columns = "c";
    for (int column = 0; column < 1900; ++column) {
        columns += ", c" + std::to_string(column);
    }
    EXPECT_TRUE(isRefused({"CREATE TABLE u (" + columns + ")",
                           "CREATE VIEW t AS SELECT 1 AS a" + times(10'000, ", *") + " FROM u"}));
    EXPECT_TRUE(
        isRefused({"CREATE TABLE u (" + columns + ")",
                   "CREATE VIEW t AS SELECT 1 AS a FROM u" + times(60, " NATURAL JOIN u")}));
}

TEST_F(SQLiteGuardTest, isNotHeldUpByALongStatement) {
    EXPECT_EQ(
        selected(Statements{tableT, rowOfT, tableU} +
                 made("u", "CREATE TABLE u (a, b" + times(6'000, ", UNIQUE (a, b, a)") + ")")),
        oneRow);
}

TEST_F(SQLiteGuardTest, refusesAProgramOfTooManyInstructions) {
    std::string columns = "a AS (c0)";
    for (int column = 1; column <= 20; ++column) {
        const std::string before = "c" + std::to_string(column - 1);
        columns += ", c" + std::to_string(column) + " AS (" + before + " || " + before + ")";
    }
    const std::string path = database(folder(), {"CREATE TABLE t (b, c0, " + columns + ")",
                                                 "INSERT INTO t (b, c0) VALUES (1, 'x')"});
    for (const std::string_view query : {"SELECT c20 FROM t", "SELECT c14 FROM t"}) {
        EXPECT_EQ(read(path, query), Rows{});
        EXPECT_EQ(ending(), SQLiteEnding::refused);
    }
    EXPECT_EQ(read(path, "SELECT c13 FROM t"), (Rows{{{"c13", times(1 << 13, "x")}}}));
}

// What takes long or memory between two steps

TEST_F(SQLiteGuardTest, isNotHeldUpByADearCall) {
    for (const std::string& call :
         {std::string("instr(hex(zeroblob(200000)), hex(zeroblob(100000)) || '1')"),
          std::string("replace(hex(zeroblob(200000)), hex(zeroblob(100000)) || '1', '')"),
          std::string("trim(hex(zeroblob(200000)), hex(randomblob(200000)))"),
          "x LIKE '" + times(100, "%a") + "'"}) {
        EXPECT_TRUE(isRefusedAsView("SELECT " + call + " AS a FROM u"));
    }
    EXPECT_TRUE(isRefused({"CREATE TABLE t (c, a AS (instr(hex(zeroblob(200000)), "
                           "hex(zeroblob(100000)) || c)))",
                           "INSERT INTO t VALUES (1)"}));
}

TEST_F(SQLiteGuardTest, fillsNoMemoryWithComputedValues) {
    std::string columns = "c0";
    for (int column = 1; column <= 12; ++column) {
        const std::string before = "c" + std::to_string(column - 1);
        columns += ", c" + std::to_string(column) + " AS (" + before + " || " + before + ")";
    }
    EXPECT_TRUE(isRefused({"CREATE TABLE t (" + columns + ", a AS (c12))",
                           "INSERT INTO t (c0) VALUES (hex(zeroblob(1000)))"}));
    EXPECT_TRUE(isRefusedAsView(endless + "SELECT zeroblob(1000000) AS a FROM n"));
    EXPECT_TRUE(isRefusedAsView(endless + "SELECT v AS a FROM n"));
    EXPECT_TRUE(
        isRefusedAsView("WITH RECURSIVE n (v) AS (SELECT 'x' UNION ALL SELECT v || v FROM n) "
                        "SELECT v AS a FROM n"));
    EXPECT_TRUE(
        isRefusedAsView(endless + "SELECT zeroblob(v * 0 + 500000) AS a FROM n ORDER BY 1"));
}

// Rows without end

TEST_F(SQLiteGuardTest, isNotHeldUpByAViewWithoutEnd) {
    EXPECT_TRUE(isRefusedAsView(endless + "SELECT v AS a FROM n WHERE v < 0"));
    EXPECT_TRUE(isRefused({tableU,
                           "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE "
                           "v < 100) INSERT INTO u SELECT v FROM n",
                           "CREATE VIEW t AS SELECT 1 AS a FROM u a, u b, u c, u d, u e "
                           "WHERE a.x + b.x + c.x + d.x + e.x < 0"}));
}

// Honest databases

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

TEST_F(SQLiteGuardTest, readsEveryRowThroughAnIndexOfLargePages) {
    const std::string path = database(
        folder(), {"PRAGMA page_size = 65536", "CREATE TABLE t (a, b, c)",
                   "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 200000) "
                   "INSERT INTO t SELECT 900000 - v, 'y', 0 FROM n",
                   "CREATE INDEX i ON t (c, a)"});
    EXPECT_EQ(read(path, "SELECT a, b FROM t WHERE c = 0 AND a != ''").size(), 200'000U);
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

TEST_F(KnottedDatabaseTest, holdsNobodyUpWithAValueOfManyPagesThatAllRowsShare) {
    // The last of the conditions, so that no row is given.
    const std::string path = knottedDatabase(
        folder(), {"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('', hex(zeroblob(500000)))"}, 4);
    const auto begin = threadTime();
    EXPECT_EQ(read(path, "SELECT a FROM t WHERE b != '' AND a != ''"), Rows{});
    EXPECT_EQ(ending(), SQLiteEnding::refused);
    EXPECT_LT(threadTime() - begin, std::chrono::seconds(5));
}

TEST_F(KnottedDatabaseTest, holdsNobodyUpAsItIsCounted) {
    const std::string path = knottedDatabase(
        folder(), {tableU, rowOfU, "CREATE VIEW t AS SELECT count(*) AS a FROM u"}, 15);
    EXPECT_EQ(read(path, "SELECT a FROM t"), Rows{});
    EXPECT_EQ(ending(), SQLiteEnding::refused);
}

TEST_F(KnottedDatabaseTest, fillsNoMemoryWithLargeRows) {
    for (const std::string value : {"zeroblob(2000)", "hex(zeroblob(1000))"}) {
        const TemporaryFolder other;
        const Rows rows = read(knotted(15, value, other), "SELECT a FROM t");
        EXPECT_GT(rows.size(), 1000U) << value;
        EXPECT_LT(rows.size(), 10'000U) << value;
    }
}

TEST_F(KnottedDatabaseTest, isNotLeftLocked) {
    const std::string path = knotted(15, "zeroblob(2000)");
    EXPECT_LT(read(path, "SELECT a FROM t").size(), 10'000U);
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
