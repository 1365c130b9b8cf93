// Little stack: nothing goes deeper the larger or the more nested a file is.

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <Rellinor/Rellinor.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Connection.hpp"
#include "Tests/Support/Exports.hpp"
#include "Tests/Support/SmallStack.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::size_t smallStack = std::size_t{64} * 1024;

/// What SQLite takes for a schema that nobody would make.
constexpr std::size_t stackOfSQLite = 4 * smallStack;

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t time = 0; time < count; ++time) {
        all += text;
    }
    return all;
}

/// Texts that are deep, long or wide for one reader or another.
std::vector<std::string> extremeTexts() {
    constexpr std::size_t many = 100'000;

    const std::string arrays = repeated("[", 505) + repeated("]", 505);
    const std::string deep = repeated(R"({"a":)", 490) + "1" + repeated("}", 490);
    const std::string objects = repeated(R"({"a":)", 505) + "1" + repeated("}", 505);
    return {
        repeated("[", many),
        repeated(R"({"a":)", many),
        repeated("[", many) + repeated("]", many),
        R"({"logins":)" + repeated("[{\"a\":", many),
        R"({"logins":[],"notes":[],"cards":[],"x":)" + arrays + "}",
        R"({"logins":[],"notes":[],"cards":[],"x":)" + objects + "}",
        repeated(R"({"secureContents":{"fields":[{"value":)", many),
        repeated("{\"secureContents\":" + objects + "}\n", 20),
        repeated("{}\n", many),
        "\"" + repeated("\\\"", many) + "\"",
        R"({"logins":")" + repeated("\\u00e9", many) + "\"}",
        repeated(",", many),
        repeated("\"", many),
        repeated("\"\"", many) + "\"",
        repeated("\",\"", many),
        repeated("\n", many),
        repeated("\"\n", many),
        repeated("x", many),
        repeated("a,b,c,d,e,f,g\n", many / 4),
        repeated("{12345678-1234-1234-1234-123456789012}", many / 38) + ",,,,,",
        repeated("\xCC\x81", many),
        repeated("1", many),
        repeated("[1e", 500) + repeated("9", many),
        R"({"items":[{"title":"x","fields":[{"value":)" + deep + "}],\"x\":" + deep + "}]}",
        R"({"vaults":{"a":{"items":[{"data":{"content":)" + deep + "}}]}}}",
        R"({"records":[{"title":"x","custom_fields":{"$paymentCard":)" + arrays + ",\"r\":" + deep +
            "}}]}",
        R"({"accounts":[{"collections":)" + repeated(R"([{"subCollections":)", 250) + "[]" +
            repeated("}]", 250) + R"(,"items":[{"credentials":[{"type":"odd","x":)" + deep +
            "}]}]}]}",
        repeated("<KeePassFile><Root><Group>", 80),
        "<KeePassFile><Root>" + repeated("<Group>", 250) + repeated("</Group>", 250) +
            "</Root></KeePassFile>",
    };
}

using StackTest = testing::TestWithParam<Export>;

TEST_P(StackTest, needsLittle) {
    const TemporaryFolder folder;
    const std::string path = GetParam().written(folder, GetParam().bytes());
    Outcome outcome;
    onSmallStack(smallStack, [&] { outcome = outcomeOf(GetParam().source, path); });
    EXPECT_EQ(outcome, GetParam().whole());
}

TEST_P(StackTest, needsNoMoreForExtremeTexts) {
    for (const std::string& text : extremeTexts()) {
        const TemporaryFolder folder;
        const std::string path = GetParam().written(folder, text);
        const Outcome outcome = outcomeOf(GetParam().source, path);
        onSmallStack(smallStack, [&] {
            EXPECT_EQ(outcomeOf(GetParam().source, path), outcome) << text.substr(0, 40);
        });
    }
}

using StackOfDatabasesTest = StackTest;

TEST_P(StackOfDatabasesTest, needsNoMoreForDeepSchemas) {
    const std::string names = GetParam().source == ImportSource::chrome
                                  ? "logins (origin_url, username_value, password_value, "
                                    "blacklisted_by_user"
                                  : "moz_logins (hostname, encryptedUsername, encryptedPassword";
    const std::string sum = "1" + repeated(" + 1", 990);
    const std::string brackets = repeated("(", 25) + "1" + repeated(")", 25);
    const std::string functions = repeated("abs(", 25) + "1" + repeated(")", 25);
    for (const std::string& statement :
         {"CREATE TABLE " + names + ", CHECK (" + sum + "))",
          "CREATE TABLE " + names + ", c DEFAULT (" + sum + "))",
          "CREATE TABLE " + names + ", c AS (" + sum + "))",
          "CREATE TABLE " + names + "); CREATE INDEX i ON " + names.substr(0, names.find(' ')) +
              " (" + sum + ")",
          "CREATE TABLE " + names + "); CREATE TRIGGER r AFTER INSERT ON " +
              names.substr(0, names.find(' ')) + " BEGIN SELECT " + sum + "; END",
          "CREATE TABLE " + names + ", CHECK (" + brackets + "))",
          "CREATE TABLE " + names + ", CHECK (" + functions + "))"}) {
        const TemporaryFolder folder;
        Connection(GetParam().fileIn(folder)).execute({statement});
        onSmallStack(stackOfSQLite, [&] {
            EXPECT_EQ(outcomeOf(GetParam().source, GetParam().importedIn(folder)), Outcome{});
        });
    }
}

TEST_P(StackOfDatabasesTest, needsNoMoreForDeepViewsAndColumns) {
    const bool isChrome = GetParam().source == ImportSource::chrome;
    const std::string name = isChrome ? "logins" : "moz_logins";
    const std::string columns = isChrome ? "origin_url, username_value, blacklisted_by_user, "
                                           "password_value"
                                         : "hostname, encryptedUsername, encryptedPassword";
    const std::string stored = "CREATE TABLE stored (" + columns + ")";
    const auto viewsOf = [&](int count, const std::string& select) {
        std::vector<std::string> statements = {stored, "CREATE VIEW v0 AS SELECT * FROM stored"};
        for (int level = 1; level <= count; ++level) {
            std::string text = "CREATE VIEW v" + std::to_string(level) + " AS ";
            text += select;
            text += std::to_string(level - 1);
            statements.push_back(text);
        }
        statements.push_back("CREATE VIEW " + name + " AS SELECT * FROM v" + std::to_string(count));
        return statements;
    };
    const std::string sum = repeated(" || ''", 90);
    std::string chain = "stat0 AS (tbl" + repeated(" + 1", 900) + ")";
    for (int column = 1; column < 50; ++column) {
        chain += ", stat" + std::to_string(column) + " AS (stat" + std::to_string(column - 1) +
                 repeated(" + 1", 900) + ")";
    }
    for (const std::vector<std::string>& statements :
         {viewsOf(90, "SELECT * FROM v"), viewsOf(1000, "SELECT * FROM v"),
          viewsOf(4, "SELECT " + columns + sum + " AS " + columns.substr(columns.rfind(' ')) +
                         " FROM v"),
          std::vector<std::string>{stored, "CREATE VIEW " + name + " AS SELECT * FROM stored" +
                                               repeated(" UNION SELECT * FROM stored", 90)},
          std::vector<std::string>{stored, "CREATE VIEW " + name + " AS SELECT * FROM stored" +
                                               repeated(" UNION SELECT * FROM stored", 490)},
          std::vector<std::string>{"CREATE TABLE " + name + " (" + columns + " AS ('x'" +
                                   repeated(" || 'x'", 280) + "))"},
          std::vector<std::string>{"CREATE TABLE " + name + " (" + columns + " AS ('x'" +
                                   repeated(" || 'x'", 900) + "))"},
          std::vector<std::string>{
              "CREATE TABLE " + name + " (" + columns + ")", "CREATE TABLE u (tbl)",
              "INSERT INTO u VALUES (1)", "PRAGMA writable_schema = ON",
              "UPDATE sqlite_master SET name = 'sqlite_stat1', tbl_name = 'sqlite_stat1', sql = "
              "'CREATE TABLE sqlite_stat1 (tbl, idx, " +
                  chain + ", stat AS (stat49))' WHERE name = 'u'"}}) {
        const TemporaryFolder folder;
        Connection(GetParam().fileIn(folder)).execute(statements);
        onSmallStack(stackOfSQLite, [&] {
            EXPECT_EQ(outcomeOf(GetParam().source, GetParam().importedIn(folder)), Outcome{});
        });
    }
}

TEST(StackOfFaithfulReadingTest, needsLittle) {
    std::size_t count = 0;
    for (const char* const samples : {RELLINOR_EXAMPLES, RELLINOR_VAULT}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(samples)) {
            const ExportFile file = ExportFile::atPath(entry.path().string());
            const Outcome outcome = copyOf(readExport(file).records);
            onSmallStack(smallStack, [&] {
                EXPECT_EQ(copyOf(readExport(file).records), outcome) << entry.path();
            });
            count += outcome.error ? 0U : 1U;
        }
    }
    EXPECT_GT(count, 30U);
}

TEST(StackOfFaithfulReadingTest, needsNoMoreForExtremeTexts) {
    for (const std::string& text : extremeTexts()) {
        const ExportFile file = ExportFile::inMemory(text, "export");
        for (const Layout layout : allLayouts()) {
            const Outcome outcome = copyOf(readExport(file, {.as = layout}).records);
            onSmallStack(smallStack, [&] {
                EXPECT_EQ(copyOf(readExport(file, {.as = layout}).records), outcome)
                    << identifier(layout) << ": " << text.substr(0, 40);
            });
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Importers, StackTest, testing::ValuesIn(allExports()), nameOf);
INSTANTIATE_TEST_SUITE_P(Importers, StackOfDatabasesTest, testing::ValuesIn(allDatabases()),
                         nameOf);

} // namespace

} // namespace Rellinor::Tests
