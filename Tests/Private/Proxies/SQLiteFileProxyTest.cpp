#include "Private/Proxies/SQLiteFileProxy.hpp"

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/OtherProcess.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_literals;

using Rows = std::vector<Values>;

/// A database with a reader on it.
class SQLiteFileProxyTest : public testing::Test {
protected:
    std::string database(const Statements& statements) const {
        return Tests::database(_folder, statements);
    }

    /// What a query gives, copied out.
    Rows selected(const std::string& path, std::string_view query) {
        return copyOf(SQLiteFileProxy(path, _memory).select(query));
    }

    /// The value that a table holds after this one was put into it.
    Value stored(const std::string& expression) {
        const TemporaryFolder folder;
        const std::string path = Tests::database(
            folder, {"CREATE TABLE t (v)", "INSERT INTO t VALUES (" + expression + ")"});
        return selected(path, "SELECT v FROM t").at(0).at("v");
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    [[nodiscard]] ImportMemory& memory() { return _memory; }

private:
    TemporaryFolder _folder;
    ImportMemory _memory;
};

const Statements threeRows = {"CREATE TABLE t (v)", "INSERT INTO t VALUES (1), (2), (3)"};
const Rows oneTwoThree = {{{"v", 1}}, {{"v", 2}}, {{"v", 3}}};
constexpr std::string_view allOfT = "SELECT v FROM t";

// Rows

TEST_F(SQLiteFileProxyTest, givesRowsAsDictionariesInTheirOrder) {
    const std::string path =
        database({"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('x', 1), ('y', 2)"});
    EXPECT_EQ(selected(path, "SELECT b, a FROM t ORDER BY b DESC"),
              (Rows{{{"a", "y"}, {"b", 2}}, {{"a", "x"}, {"b", 1}}}));
}

TEST_F(SQLiteFileProxyTest, givesNoRowsForAQueryThatFindsNone) {
    EXPECT_EQ(selected(database(threeRows), "SELECT v FROM t WHERE v > 3"), Rows{});
}

TEST_F(SQLiteFileProxyTest, keepsTheKeyOfAnAbsentValue) {
    const std::string path = database({"CREATE TABLE t (a, b)", "INSERT INTO t (b) VALUES (1)"});
    EXPECT_EQ(selected(path, "SELECT * FROM t"), (Rows{{{"a", absent}, {"b", 1}}}));
}

TEST_F(SQLiteFileProxyTest, hasNoValueForAnUnknownColumn) {
    const SQLiteRows rows = SQLiteFileProxy(database(threeRows), memory()).select(allOfT);
    EXPECT_TRUE((*rows.begin())["v"]);
    EXPECT_FALSE((*rows.begin())["V"]);
    EXPECT_FALSE((*rows.begin())[""]);
}

TEST_F(SQLiteFileProxyTest, ofTwoColumnsOfOneNameTheLaterCounts) {
    const std::string path = database({});
    EXPECT_EQ(selected(path, "SELECT 1 AS a, 2 AS b, 3 AS a"), (Rows{{{"a", 3}, {"b", 2}}}));
    EXPECT_EQ(selected(path, "SELECT 1 AS a, NULL AS a"), (Rows{{{"a", absent}}}));
}

TEST_F(SQLiteFileProxyTest, namesColumnsAsTheDatabaseDoes) {
    EXPECT_EQ(selected(database({}), "SELECT 1 AS 'a b', 2 AS \"\""),
              (Rows{{{"a b", 1}, {"", 2}}}));
}

// Values

TEST_F(SQLiteFileProxyTest, anIntegerKeepsItsLow32BitsAlone) {
    EXPECT_EQ(stored("42"), Value(42));
    EXPECT_EQ(stored("-42"), Value(-42));
    EXPECT_EQ(stored("0"), Value(0));
    EXPECT_EQ(stored("2147483647"), Value(2147483647));
    EXPECT_EQ(stored("2147483648"), Value(-2147483648LL));
    EXPECT_EQ(stored("-2147483648"), Value(-2147483648LL));
    EXPECT_EQ(stored("-2147483649"), Value(2147483647));
    EXPECT_EQ(stored("4294967295"), Value(-1));
    EXPECT_EQ(stored("4294967297"), Value(1));
    EXPECT_EQ(stored("9223372036854775807"), Value(-1));
    EXPECT_EQ(stored("-9223372036854775808"), Value(0));
}

TEST_F(SQLiteFileProxyTest, aFloatingPointNumberIsNarrowedTo32Bits) {
    EXPECT_EQ(stored("0.5"), Value(0.5F));
    EXPECT_EQ(stored("0.0"), Value(0.0F));
    EXPECT_EQ(stored("0.1"), Value(0.1F));
    EXPECT_EQ(stored("16777217.0"), Value(16777216.0F));
    EXPECT_EQ(stored("2147483648.0"), Value(2147483648.0F));
    EXPECT_EQ(stored("3.4028234663852886e38"), Value(std::numeric_limits<float>::max()));
    EXPECT_EQ(stored("1e308"), Value(std::numeric_limits<float>::infinity()));
    EXPECT_EQ(stored("-1e308"), Value(-std::numeric_limits<float>::infinity()));
    EXPECT_EQ(stored("9e999"), Value(std::numeric_limits<float>::infinity()));
    EXPECT_EQ(stored("1e-40"), Value(1e-40F)); // subnormal in 32 bits
    EXPECT_EQ(stored("1e-320"), Value(0.0F));  // subnormal in 64 bits
    EXPECT_EQ(stored("1e-500"), Value(0.0F));
}

TEST_F(SQLiteFileProxyTest, givesATextAsItStands) {
    EXPECT_EQ(stored("'text'"), Value("text"));
    EXPECT_EQ(stored("''"), Value(""));
    EXPECT_EQ(stored("' Grüße, 漢字 \U0001F511 '"), Value(" Grüße, 漢字 \U0001F511 "));
    EXPECT_EQ(stored("'123'"), Value("123"));
    EXPECT_EQ(stored("CAST(x'EFBBBF61' AS TEXT)"), Value("\uFEFFa"));
    const std::string longText(3'000'000, 'x');
    EXPECT_EQ(stored("'" + longText + "'"), Value(longText));
}

TEST_F(SQLiteFileProxyTest, aTextEndsAtItsFirstNUL) {
    EXPECT_EQ(stored("CAST(x'61006263' AS TEXT)"), Value("a"));
    EXPECT_EQ(stored("CAST(x'0061' AS TEXT)"), Value(""));
    EXPECT_EQ(stored("CAST(x'6100FF' AS TEXT)"), Value("a"));
}

TEST_F(SQLiteFileProxyTest, repairsATextThatIsNotUTF8) {
    EXPECT_EQ(stored("CAST(x'61FF62' AS TEXT)"), Value("a\uFFFDb"));
    EXPECT_EQ(stored("CAST(x'636166E9' AS TEXT)"), Value("caf\uFFFD"));
    EXPECT_EQ(stored("CAST(x'E282' AS TEXT)"), Value("\uFFFD"));
    EXPECT_EQ(stored("CAST(x'EDA080' AS TEXT)"), Value("\uFFFD\uFFFD\uFFFD"));
}

TEST_F(SQLiteFileProxyTest, givesABlobWithExactlyItsBytes) {
    EXPECT_EQ(stored("x'763130'"), Value(Blob{"v10"}));
    EXPECT_EQ(stored("x'00'"), Value(Blob{"\0"s}));
    EXPECT_EQ(stored("x'610062'"), Value(Blob{"a\0b"s}));
    EXPECT_EQ(stored("x'FF80'"), Value(Blob{"\xFF\x80"}));
    EXPECT_EQ(stored("zeroblob(1000000)"), Value(Blob{std::string(1'000'000, '\0')}));
}

TEST_F(SQLiteFileProxyTest, anEmptyBlobIsAnAbsentValue) {
    EXPECT_EQ(stored("x''"), Value(absent));
    EXPECT_EQ(stored("zeroblob(0)"), Value(absent));
}

TEST_F(SQLiteFileProxyTest, takesNULLForAbsent) {
    EXPECT_EQ(stored("NULL"), Value(absent));
    EXPECT_EQ(stored("9e999 - 9e999"), Value(absent)); // not a number
}

TEST_F(SQLiteFileProxyTest, typesEachValueByItselfAndNotByItsColumn) {
    const std::string path = database(
        {"CREATE TABLE t (v)", "INSERT INTO t VALUES (1), (1.5), ('one'), (x'31'), (NULL)"});
    EXPECT_EQ(
        selected(path, allOfT),
        (Rows{{{"v", 1}}, {{"v", 1.5F}}, {{"v", "one"}}, {{"v", Blob{"1"}}}, {{"v", absent}}}));
}

TEST_F(SQLiteFileProxyTest, readsADatabaseInUTF16) {
    for (const std::string encoding : {"UTF-16le", "UTF-16be"}) {
        const TemporaryFolder folder;
        const std::string path =
            Tests::database(folder, {"PRAGMA encoding = '" + encoding + "'", "CREATE TABLE t (v)",
                                     "INSERT INTO t VALUES ('é\U0001F511')"});
        EXPECT_EQ(selected(path, allOfT), (Rows{{{"v", "é\U0001F511"}}})) << encoding;
    }
}

// The query

TEST_F(SQLiteFileProxyTest, givesNoRowsForAQueryThatIsNotSQL) {
    const std::string path = database(threeRows);
    EXPECT_EQ(selected(path, "SELEC v FROM t"), Rows{});
    EXPECT_EQ(selected(path, "SELECT v FROM t WHERE"), Rows{});
}

TEST_F(SQLiteFileProxyTest, givesNoRowsForAMissingTableOrColumn) {
    const std::string path = database(threeRows);
    EXPECT_EQ(selected(path, "SELECT v FROM u"), Rows{});
    EXPECT_EQ(selected(path, "SELECT v, w FROM t"), Rows{});
}

TEST_F(SQLiteFileProxyTest, runsTheFirstStatementOnly) {
    EXPECT_EQ(selected(database(threeRows), "SELECT 1 AS v; SELECT 2 AS v"), (Rows{{{"v", 1}}}));
}

TEST_F(SQLiteFileProxyTest, theQueryIsCutShortByTheDifferenceOfBytesAndCharacters) {
    const std::string path = database({});
    // 15 characters in 16 bytes: the last byte is left out.
    EXPECT_EQ(selected(path, "SELECT 'é' AS ab"), (Rows{{{"a", "é"}}}));
    // 19 characters, of which one has 3 bytes and one is CR LF.
    EXPECT_EQ(selected(path, "SELECT 'e\u0301' AS\r\nabcd"), (Rows{{{"a", "e\u0301"}}}));
    EXPECT_EQ(selected(path, "SELECT 'é'"), Rows{});
}

TEST_F(SQLiteFileProxyTest, readsNothingBehindTheQuery) {
    const std::string path = database(threeRows);
    const std::string_view query = "SELECT v FROM t WHERE v > 2";
    EXPECT_EQ(selected(path, query.substr(0, allOfT.size())), oneTwoThree);
}

TEST_F(SQLiteFileProxyTest, stopsForAQueryWithoutAStatement) {
    const std::string path = database({});
    EXPECT_DEATH(selected(path, ""), "^$");
    EXPECT_DEATH(selected(path, " -- nothing"), "^$");
}

TEST_F(SQLiteFileProxyTest, keepsTheRowsReadBeforeAnError) {
    EXPECT_EQ(selected(database(threeRows), "SELECT CASE v WHEN 3 THEN "
                                            "abs(-9223372036854775808) ELSE v END AS v FROM t"),
              (Rows{{{"v", 1}}, {{"v", 2}}}));
}

TEST_F(SQLiteFileProxyTest, keepsNoRowsIfTheFirstStepFails) {
    EXPECT_EQ(selected(database(threeRows), "SELECT abs(-9223372036854775808) FROM t"), Rows{});
}

// The file

TEST_F(SQLiteFileProxyTest, leavesAnEmptyFileWhereThereWasNone) {
    const std::string path = folder() / "missing";
    EXPECT_EQ(selected(path, allOfT), Rows{});
    ASSERT_TRUE(std::filesystem::is_regular_file(path));
    EXPECT_EQ(std::filesystem::file_size(path), 0);
}

TEST_F(SQLiteFileProxyTest, givesNoRowsForAMissingFolderOrAFolder) {
    EXPECT_EQ(selected(folder() / "missing/database", allOfT), Rows{});
    EXPECT_EQ(selected(folder().path(), allOfT), Rows{});
    EXPECT_FALSE(std::filesystem::exists(folder() / "missing"));
}

TEST_F(SQLiteFileProxyTest, givesNoRowsForAFileThatIsNoDatabase) {
    const std::string garbage(5000, 'x');
    const std::string path = folder().file("garbage", garbage);
    EXPECT_EQ(selected(path, allOfT), Rows{});
    EXPECT_EQ(contentsOf(path), garbage);
}

TEST_F(SQLiteFileProxyTest, doesNotCutAPathAtItsNUL) {
    EXPECT_EQ(selected(database(threeRows) + '\0' + "more", allOfT), Rows{});
}

TEST_F(SQLiteFileProxyTest, keepsTheRowsBeforeADamagedPage) {
    const std::string path =
        database({"PRAGMA page_size = 512", "CREATE TABLE t (v)",
                  "WITH n AS (SELECT 1 AS v UNION ALL SELECT v + 1 FROM n WHERE v < 200) "
                  "INSERT INTO t SELECT printf('%0100d', v) FROM n"});
    std::string bytes = contentsOf(path);
    const std::size_t middle = bytes.size() / 512 / 2 * 512;
    bytes.replace(middle, 512, std::string(512, 'x'));
    const Rows rows = selected(folder().file("database", bytes), allOfT);
    EXPECT_GT(rows.size(), 0);
    EXPECT_LT(rows.size(), 200);
    EXPECT_EQ(rows.at(0).at("v"), Value(std::string(99, '0') + "1"));
}

TEST_F(SQLiteFileProxyTest, leavesTheFileAsItIs) {
    const std::string path = database(threeRows);
    const std::string before = contentsOf(path);
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
    EXPECT_EQ(selected(path, "SELECT nothing FROM t"), Rows{});
    EXPECT_EQ(contentsOf(path), before);
}

TEST_F(SQLiteFileProxyTest, readsAFileThatMayNotBeWritten) {
    const std::string path = database(threeRows);
    forbidWriting(path);
    EXPECT_EXIT(exitAsNobody([&] { return selected(path, allOfT) == oneTwoThree; }),
                testing::ExitedWithCode(0), "");
}

TEST_F(SQLiteFileProxyTest, opensTheFileAnewForEachSelect) {
    const std::string path = database(threeRows);
    SQLiteFileProxy proxy(path, memory());
    EXPECT_EQ(copyOf(proxy.select(allOfT)), oneTwoThree);
    Connection(path).execute({"DELETE FROM t WHERE v > 1"});
    EXPECT_EQ(copyOf(proxy.select("SELECT nothing")), Rows{});
    EXPECT_EQ(copyOf(proxy.select(allOfT)), (Rows{{{"v", 1}}}));
}

// Others at the same file

TEST_F(SQLiteFileProxyTest, givesNoRowsAtOnceIfAnotherConnectionHasTheFileLocked) {
    const std::string path = database(threeRows);
    const Connection other(path);
    other.execute({"BEGIN EXCLUSIVE"});
    EXPECT_EQ(selected(path, allOfT), Rows{});
    other.execute({"COMMIT"});
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
}

TEST_F(SQLiteFileProxyTest, givesNoRowsIfAnotherProcessHasTheFileLocked) {
    const std::string path = database(threeRows);
    const std::string before = contentsOf(path);
    {
        const OtherProcess other([&] {
            auto* connection = new Connection(path);
            connection->execute({"BEGIN EXCLUSIVE"});
        });
        EXPECT_EQ(selected(path, allOfT), Rows{});
    }
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
    EXPECT_EQ(contentsOf(path), before);
}

TEST_F(SQLiteFileProxyTest, readsWhatWasCommittedWhileAnotherProcessPreparesAWrite) {
    const std::string path = database(threeRows);
    const OtherProcess other([&] {
        auto* connection = new Connection(path);
        connection->execute({"BEGIN IMMEDIATE", "DELETE FROM t"});
    });
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
}

TEST_F(SQLiteFileProxyTest, keepsNoLockWhenItIsDone) {
    const std::string path = database(threeRows);
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
    EXPECT_EQ(selected(path, "SELECT v FROM t WHERE v > 3"), Rows{});
    EXPECT_EQ(selected(path, "SELECT abs(-9223372036854775808) FROM t"), Rows{});
    Connection(path).execute({"BEGIN EXCLUSIVE", "DELETE FROM t WHERE v > 1", "COMMIT"});
    EXPECT_EQ(selected(path, allOfT), (Rows{{{"v", 1}}}));
}

TEST_F(SQLiteFileProxyTest, readsAWriteAheadLogAndLeavesTheFileAsItIs) {
    const std::string path = folder() / "database";
    dieAfter([&] {
        auto* connection = new Connection(path);
        connection->execute({"PRAGMA journal_mode = WAL"});
        connection->execute(threeRows);
    });
    ASSERT_GT(std::filesystem::file_size(path + "-wal"), 0);
    const std::string before = contentsOf(path);
    const std::string log = contentsOf(path + "-wal");
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
    EXPECT_EQ(contentsOf(path), before);
    EXPECT_EQ(contentsOf(path + "-wal"), log);
}

TEST_F(SQLiteFileProxyTest, readsAWriteAheadLogWhileAnotherProcessWrites) {
    const std::string path = folder() / "database";
    const OtherProcess other([&] {
        auto* connection = new Connection(path);
        connection->execute({"PRAGMA journal_mode = WAL"});
        connection->execute(threeRows);
        connection->execute({"BEGIN IMMEDIATE", "DELETE FROM t"});
    });
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
}

TEST_F(SQLiteFileProxyTest, letsSQLiteRollBackWhatADeadProcessLeftHalfWritten) {
    const std::string path =
        database({"CREATE TABLE t (v)", "INSERT INTO t VALUES (1), (2), (3)", "CREATE TABLE u (v)",
                  "WITH n AS (SELECT 1 AS v UNION ALL SELECT v + 1 FROM n WHERE v < 1000) "
                  "INSERT INTO u SELECT zeroblob(1000) FROM n"});
    const std::string before = contentsOf(path);
    dieAfter([&] {
        auto* connection = new Connection(path);
        // With so small a cache the changed pages are written before the transaction is.
        connection->execute({"PRAGMA cache_size = 1", "BEGIN", "UPDATE t SET v = 0",
                             "UPDATE u SET v = randomblob(1000)"});
    });
    ASSERT_GT(std::filesystem::file_size(path + "-journal"), 0);
    ASSERT_NE(contentsOf(path), before);
    EXPECT_EQ(selected(path, allOfT), oneTwoThree);
    EXPECT_EQ(contentsOf(path), before);
}

// What is left behind

TEST_F(SQLiteFileProxyTest, theStatementIsNeverFinalized) {
    const std::string path = database(threeRows);
    const std::size_t before = openDescriptors();
    for (std::size_t count = 1; count <= 10; ++count) {
        EXPECT_EQ(selected(path, allOfT), oneTwoThree);
        EXPECT_EQ(openDescriptors(), before + count);
    }
}

TEST_F(SQLiteFileProxyTest, theHandleOfAFailedOpenIsNotClosed) {
    const auto before = ::sqlite3_memory_used();
    EXPECT_EQ(selected(folder().path(), allOfT), Rows{});
    EXPECT_GT(::sqlite3_memory_used(), before);
}

TEST_F(SQLiteFileProxyTest, keepsNoDescriptorIfTheQueryCannotBePrepared) {
    const std::string path = database(threeRows);
    const std::size_t before = openDescriptors();
    for (int count = 0; count < 10; ++count) {
        EXPECT_EQ(selected(path, "SELECT nothing FROM t"), Rows{});
        EXPECT_EQ(selected(folder() / "missing", allOfT), Rows{});
        EXPECT_EQ(selected(folder().path(), allOfT), Rows{});
    }
    EXPECT_EQ(openDescriptors(), before);
}

// Memory

TEST_F(SQLiteFileProxyTest, takesNoMemoryOfItsOwnForARow) {
    const std::string path =
        database({"CREATE TABLE t (v)",
                  "WITH n AS (SELECT 1 AS v UNION ALL SELECT v + 1 FROM n WHERE v < 9000) "
                  "INSERT INTO t SELECT 'text ' || v FROM n"});
    const auto allocations = [&](std::string_view query) {
        return allocationsOf([&] {
            ImportMemory memory;
            EXPECT_GT(SQLiteFileProxy(path, memory).select(query).size(), 0);
        });
    };
    EXPECT_LT(allocations("SELECT v FROM t"), allocations("SELECT v FROM t LIMIT 1000") + 20);
}

TEST_F(SQLiteFileProxyTest, closesTheConnectionIfMemoryRunsOut) {
    const std::string path = database(threeRows);
    SQLiteFileProxy proxy(path, memory());
    for (std::size_t nth = 1;; ++nth) {
        ASSERT_LT(nth, 100) << "every allocation failed";
        bool failed = false;
        failAllocation(nth, [&] {
            try {
                EXPECT_EQ(proxy.select(allOfT).size(), 3);
            } catch (const std::bad_alloc&) {
                failed = true;
            }
        });
        // No lock was left behind.
        Connection(path).execute({"BEGIN EXCLUSIVE", "COMMIT"});
        if (!failed) {
            EXPECT_GT(nth, 1);
            break;
        }
    }
}

// A function that leaves SQLite without memory, so that a text cannot be converted.
int addExhaust(::sqlite3* connection, char** /*error*/,
               const ::sqlite3_api_routines* /*routines*/) {
    return ::sqlite3_create_function(
        connection, "exhaust", 0, SQLITE_UTF8, nullptr,
        [](::sqlite3_context* context, int /*count*/, ::sqlite3_value** /*arguments*/) {
            ::sqlite3_hard_heap_limit64(1);
            ::sqlite3_result_int(context, 1);
        },
        nullptr, nullptr);
}

TEST_F(SQLiteFileProxyTest, lacksMemoryIfSQLiteLacksItForAValue) {
    const std::string path = database({"PRAGMA encoding = 'UTF-16le'", "CREATE TABLE t (v)",
                                       "INSERT INTO t VALUES ('" + std::string(10000, 'x') + "')"});
    for (const std::string_view query :
         {"SELECT v, exhaust() FROM t", "SELECT zeroblob(length(v)), exhaust() FROM t"}) {
        ::sqlite3_auto_extension(reinterpret_cast<void (*)()>(addExhaust));
        EXPECT_THROW((void)selected(path, query), std::bad_alloc) << query;
        ::sqlite3_reset_auto_extension();
        ::sqlite3_hard_heap_limit64(0);
        // No lock was left behind.
        Connection(path).execute({"BEGIN EXCLUSIVE", "COMMIT"});
    }
}

TEST_F(SQLiteFileProxyTest, keepsTheRowsBeforeARowOfFourGigabytes) {
    const std::string path = database({"PRAGMA page_size = 512", threeRows[0], threeRows[1]});
    claimMemory(path);
    EXPECT_EQ(selected(path, allOfT), (Rows{{{"v", 1}}, {{"v", 2}}}));
    // Unless there is not even the memory for an honest row.
    ::sqlite3_hard_heap_limit64(::sqlite3_memory_used() + 10'000'000);
    EXPECT_THROW((void)selected(path, allOfT), std::bad_alloc);
    ::sqlite3_hard_heap_limit64(0);
}

} // namespace

} // namespace Rellinor::Tests
