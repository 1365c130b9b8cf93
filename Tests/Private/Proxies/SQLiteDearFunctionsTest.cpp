#include "Private/Proxies/SQLiteDearFunctions.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace Rellinor::Tests {

namespace {

using Database = std::unique_ptr<::sqlite3, decltype(&::sqlite3_close)>;

Database opened(const std::string& encoding = "UTF-8") {
    ::sqlite3* connection = nullptr;
    EXPECT_EQ(::sqlite3_open(":memory:", &connection), SQLITE_OK);
    EXPECT_EQ(::sqlite3_exec(connection, ("PRAGMA encoding = '" + encoding + "'").c_str(), nullptr,
                             nullptr, nullptr),
              SQLITE_OK);
    return {connection, &::sqlite3_close};
}

/// The one value that a query gives, as SQLite quotes it; absent if there is an error.
std::optional<std::string> value(::sqlite3* connection, const std::string& expression) {
    ::sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(::sqlite3_prepare_v2(connection, ("SELECT quote(" + expression + ")").c_str(), -1,
                                   &statement, nullptr),
              SQLITE_OK);
    std::optional<std::string> text;
    if (::sqlite3_step(statement) == SQLITE_ROW) {
        text = reinterpret_cast<const char*>(::sqlite3_column_text(statement, 0)); // NOLINT(*-cast)
    }
    ::sqlite3_finalize(statement);
    return text;
}

TEST(SQLiteDearFunctionsTest, giveWhatSQLitesOwnGive) {
    const std::string rows =
        " FROM (SELECT 1 AS v UNION ALL SELECT 2 UNION ALL SELECT 3) ORDER BY 1 DESC LIMIT 1)";
    for (const std::string encoding : {"UTF-8", "UTF-16le"}) {
        const Database own = opened(encoding);
        const Database bounded = opened(encoding);
        const SQLiteDearFunctions functions(*bounded, 1'000'000);
        for (const std::string& expression :
             std::vector<std::string>{"instr('äbc', 'c')",
                                      "instr(x'01024142', x'42')",
                                      "instr('a', NULL)",
                                      "instr(12345, 34)",
                                      "instr(1.5, '.')",
                                      "instr('', '')",
                                      "replace('abcabc', 'b', 'ää')",
                                      "replace('abc', '', 'x')",
                                      "replace(x'6162', 'b', 1)",
                                      "trim('xxaxx', 'x')",
                                      "ltrim('äxä', 'ä')",
                                      "rtrim('axx', 'yx')",
                                      "trim(x'614261', 'a')",
                                      "trim('  a  ')",
                                      R"(json_patch('{"a":1,"b":2}', '{"b":null}'))",
                                      "json_patch('{', '{}')",
                                      "json_array(json_patch('{}', '{}'), trim('[]', 'x'))",
                                      "typeof(instr('a', 'b')) || typeof(replace(1, 2, 3))",
                                      "(SELECT count(*)" + rows,
                                      "(SELECT count(*) FROM (SELECT 1 WHERE 0))",
                                      "(SELECT count(*) OVER (ORDER BY v ROWS 1 PRECEDING)" + rows,
                                      "(SELECT count(*) FILTER (WHERE v > 1)" + rows,
                                      "replace(hex(zeroblob(600)), '0', hex(zeroblob(600)))"}) {
            EXPECT_EQ(value(bounded.get(), expression), value(own.get(), expression)) << expression;
        }
    }
}

TEST(SQLiteDearFunctionsTest, giveNoLongerValuesThanTheConnection) {
    const Database connection = opened();
    (void)::sqlite3_limit(connection.get(), SQLITE_LIMIT_LENGTH, 1000);
    const SQLiteDearFunctions functions(*connection, 1'000'000);
    EXPECT_TRUE(value(connection.get(), "replace('aaa', 'a', hex(zeroblob(100)))"));
    EXPECT_FALSE(value(connection.get(), "replace('aaaaaa', 'a', hex(zeroblob(100)))"));
    EXPECT_FALSE(functions.isUsedUp());
}

TEST(SQLiteDearFunctionsTest, failWhenTheBudgetIsUsedUp) {
    const Database connection = opened();
    const SQLiteDearFunctions functions(*connection, 1000);
    EXPECT_EQ(value(connection.get(), "instr(zeroblob(19), zeroblob(19))"), "1"); // 400
    EXPECT_EQ(value(connection.get(), "trim(zeroblob(19), zeroblob(19))"), "''");
    EXPECT_FALSE(functions.isUsedUp());
    EXPECT_FALSE(value(connection.get(), "replace(zeroblob(19), zeroblob(19), 1)"));
    EXPECT_TRUE(functions.isUsedUp());
    EXPECT_FALSE(value(connection.get(), "instr('', '')"));
    EXPECT_EQ(value(connection.get(), "trim(' a ')"), "'a'");
}

TEST(SQLiteDearFunctionsTest, leaveNothingThatAStatementCouldCall) {
    const Database connection = opened();
    {
        const SQLiteDearFunctions functions(*connection, 1000);
        EXPECT_TRUE(value(connection.get(), "instr('a', 'a')"));
    }
    EXPECT_NE(::sqlite3_exec(connection.get(), "SELECT instr('a', 'a')", nullptr, nullptr, nullptr),
              SQLITE_OK);
}

} // namespace

} // namespace Rellinor::Tests
