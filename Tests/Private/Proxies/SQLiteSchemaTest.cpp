#include "Private/Proxies/SQLiteSchema.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

SQLiteSchema schemaOf(const std::vector<std::string>& texts) {
    SQLiteSchema schema;
    for (const std::string& text : texts) {
        schema.add(text);
    }
    return schema;
}

/// Whether a query of a table or view "t" is bounded.
bool isBounded(const std::vector<std::string>& texts) {
    return schemaOf(texts).isBounded("SELECT a, b FROM t WHERE a IS NOT NULL AND a != ''");
}

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (; count > 0; --count) {
        all += text;
    }
    return all;
}

/// Views that are made of each other, "v0" first and "t" last.
std::vector<std::string> views(std::size_t count, const std::string& first,
                               const std::string& before, const std::string& behind) {
    std::vector<std::string> texts = {"CREATE VIEW v0 AS " + first};
    for (std::size_t level = 1; level <= count; ++level) {
        texts.push_back("CREATE VIEW v" + std::to_string(level) + " AS " + before + "v" +
                        std::to_string(level - 1) + behind);
    }
    texts.push_back("CREATE VIEW t AS SELECT a, b FROM v" + std::to_string(count));
    return texts;
}

TEST(SQLiteSchemaTest, isBoundedIfNothingInItComputes) {
    EXPECT_TRUE(isBounded({}));
    EXPECT_TRUE(isBounded({"CREATE TABLE t (a, b, CHECK (a > b))", "CREATE INDEX i ON t (a + b)"}));
    EXPECT_TRUE(isBounded({"", "CREATE", "CREATE TABLE", "CREATE VIEW", "nonsense ((('", ")"}));
}

TEST(SQLiteSchemaTest, isBoundedWithViewsThatPeopleMake) {
    const std::string table = "CREATE TABLE u (" + times(50, "c, ") + "a, b)";
    for (const std::string select :
         {"SELECT a, b FROM u", "SELECT * FROM u", "SELECT u.*, w.x FROM u JOIN w USING (a)",
          "SELECT DISTINCT lower(a) AS a, CASE WHEN b IS NULL THEN '' ELSE trim(b) END AS b FROM u",
          "WITH n AS (SELECT a FROM u), m AS (SELECT n.a, n.b FROM n) "
          "SELECT m.a, n.b FROM n, m WHERE n.a = m.a",
          "SELECT a, (SELECT count(*) FROM w WHERE w.a = u.a) AS b FROM u ORDER BY a, b"}) {
        EXPECT_TRUE(isBounded({table, "CREATE VIEW t AS " + select})) << select;
    }
    EXPECT_TRUE(isBounded({table, "CREATE VIEW t AS SELECT a, b FROM u" +
                                      times(40, " UNION ALL SELECT a, b FROM u")}));
    EXPECT_TRUE(isBounded(views(5, "SELECT * FROM u", "SELECT a, b FROM ", "")));
}

TEST(SQLiteSchemaTest, isNotBoundedIfItMultipliesTables) {
    EXPECT_FALSE(isBounded(views(30, "SELECT 1", "SELECT 1 FROM v0, ", "")));
    const auto twice = [](const std::string& before, const std::string& behind) {
        std::string tables = "c0 AS (SELECT 1)";
        for (int level = 1; level <= 30; ++level) {
            const std::string below = "c" + std::to_string(level - 1);
            tables += ", c" + std::to_string(level) + before + below + ", " + below + behind;
        }
        return "CREATE VIEW t AS WITH " + tables + " SELECT a FROM c30";
    };
    for (const std::string& view :
         {twice(" AS (SELECT 1 FROM ", ")"), twice("(a) AS (SELECT 1 FROM ", ")"),
          twice(" AS /* ( */ MATERIALIZED (SELECT 1 FROM ", ")"),
          twice(" AS NOT MATERIALIZED\v(SELECT 1 FROM ", ")"),
          twice(" AS (SELECT 1 UNION SELECT 2 FROM ", ")"),
          twice(" AS (VALUES (1) UNION ALL SELECT 2 FROM ", ")"),
          twice(" AS (SELECT 1 FROM (SELECT 1 FROM ", "))")}) {
        EXPECT_FALSE(isBounded({view})) << view.substr(0, 100);
    }
}

TEST(SQLiteSchemaTest, isNotBoundedWhateverTheQuotesOfTheNames) {
    const std::vector<std::string> quoted = {"\"a\"\"", "[a\"", "`a\"`", "'a\"'"};
    std::string tables = "\"a\"\"0\" AS (SELECT 1)";
    for (int level = 1; level <= 30; ++level) {
        const std::string below = std::to_string(level - 1);
        tables += ", \"A\"\"" + std::to_string(level) + "\" AS (SELECT 1 FROM [a\"" + below +
                  "], 'a\"" + below + "')";
    }
    EXPECT_FALSE(isBounded({"CREATE VIEW t AS WITH " + tables + " SELECT a FROM `a\"30`"}));
}

TEST(SQLiteSchemaTest, isNotBoundedIfItMultipliesColumns) {
    EXPECT_FALSE(isBounded(views(30, "SELECT 1 AS a, 2 AS b", "SELECT a || a AS a FROM ", "")));
    EXPECT_FALSE(isBounded(
        views(30, "SELECT 1 AS a, 2 AS b", "SELECT 1 IS DISTINCT FROM 2, a || a AS a FROM ", "")));
    EXPECT_FALSE(isBounded({"CREATE VIEW t AS " + times(30, "SELECT a || a AS a FROM (") +
                            "SELECT a FROM u" + times(30, ")")}));
}

TEST(SQLiteSchemaTest, isNotBoundedIfItNamesAllColumnsTooOften) {
    const std::string table = "CREATE TABLE u (" + times(1900, "c, ") + "a, b)";
    EXPECT_TRUE(isBounded({table, "CREATE VIEW t AS SELECT *, u.* FROM u"}));
    for (const std::string& select : {"SELECT 1" + times(1000, ", *") + " FROM u",
                                      "SELECT 1" + times(1000, ", u.*") + " FROM u",
                                      "SELECT 1 FROM u" + times(20, " NATURAL JOIN u"),
                                      "SELECT 1 FROM u" + times(20, " JOIN u USING (a)")}) {
        EXPECT_FALSE(isBounded({table, "CREATE VIEW t AS " + select})) << select.substr(0, 60);
    }
    EXPECT_TRUE(isBounded({table, "CREATE VIEW t AS SELECT 1" + times(40, " * 2") + " FROM u"}));
}

TEST(SQLiteSchemaTest, isNotBoundedIfItNeedsMuchStack) {
    const std::string sum = times(80, " + 1");
    EXPECT_TRUE(isBounded(views(1, "SELECT 1 AS a", "SELECT a" + sum + " AS a FROM ", "")));
    EXPECT_FALSE(isBounded(views(5, "SELECT 1 AS a", "SELECT a" + sum + " AS a FROM ", "")));
    EXPECT_FALSE(isBounded(views(200, "SELECT 1 AS a", "SELECT a FROM ", "")));
    EXPECT_FALSE(
        isBounded({"CREATE VIEW t AS SELECT a FROM u" + times(200, " UNION ALL SELECT a FROM u")}));
    EXPECT_TRUE(isBounded({"CREATE TABLE t (b, a AS (b" + times(200, " + 1") + "))"}));
    EXPECT_FALSE(isBounded({"CREATE TABLE t (b, a AS (b" + times(400, " + 1") + "))"}));
    EXPECT_FALSE(isBounded({"CREATE TABLE t (b" + times(20, ", c AS (b" + sum + ")") + ")"}));
}

TEST(SQLiteSchemaTest, mindsOnlyWhatAQueryReads) {
    std::vector<std::string> texts = views(30, "SELECT 1", "SELECT 1 FROM v0, ", "");
    texts.back() = "CREATE TEMP VIEW IF NOT EXISTS main . 'T' AS SELECT a, b FROM u";
    EXPECT_TRUE(isBounded(texts));
    texts.back() = "CREATE TEMP VIEW IF NOT EXISTS main . 'T' AS SELECT a, b FROM v30";
    EXPECT_FALSE(isBounded(texts));
}

TEST(SQLiteSchemaTest, knowsStatisticsThatAreComputed) {
    for (const std::string text :
         {"CREATE TABLE sqlite_stat1(tbl,idx,stat AS (1))",
          "CREATE TABLE IF NOT EXISTS main.\"SQLITE_STAT4\"(a GENERATED ALWAYS AS\v(1))"}) {
        EXPECT_TRUE(schemaOf({text}).computesStatistics()) << text;
    }
    for (const std::string text :
         {"CREATE TABLE sqlite_stat1(tbl,idx,stat)",
          "CREATE VIEW v AS SELECT x AS (y) FROM sqlite_stat1", "CREATE TABLE t (a AS (1))"}) {
        EXPECT_FALSE(schemaOf({text}).computesStatistics()) << text;
    }
}

} // namespace

} // namespace Rellinor::Tests
