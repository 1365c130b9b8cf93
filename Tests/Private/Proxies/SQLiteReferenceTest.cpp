// The rows of random sound databases, against those of SQLite's own loop.

#include <array>
#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Importers/Chrome/ChromeImporter.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Reference/DatabaseReference.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::array<std::string_view, 18> values = {"NULL",
                                                     "0",
                                                     "1",
                                                     "-7",
                                                     "4294967297",
                                                     "0.1",
                                                     "''",
                                                     "'https://site.example/' || v",
                                                     "'user' || v",
                                                     "x''",
                                                     "x'763130'",
                                                     "randomblob(v % 50)",
                                                     "'Grüße, 漢字'",
                                                     "'a' || char(0) || 'b'",
                                                     "CAST(x'61FF62' AS TEXT)",
                                                     "hex(randomblob(v % 3000))",
                                                     "zeroblob(v)",
                                                     "v"};

/// What stands in the schema besides.
constexpr std::array<std::string_view, 16> bystanders = {
    "CREATE TABLE other (x DEFAULT (datetime('now')), y DEFAULT (abs(-1)), z DEFAULT -1)",
    "CREATE TABLE other (x CHECK (length(x) > 0 AND x NOT LIKE '%!%'), y AS (upper(x)))",
    "CREATE TABLE other (x CHECK (json_valid(x)), y AS (json_extract(x, '$.y')) STORED)",
    "CREATE INDEX byBlacklisted ON stored (blacklisted_by_user)",
    "CREATE INDEX byUser ON stored (blacklisted_by_user, username_value)",
    "CREATE INDEX byUserDescending ON stored (blacklisted_by_user, username_value DESC, "
    "origin_url)",
    "CREATE INDEX some ON stored (blacklisted_by_user, origin_url) WHERE username_value IS NOT "
    "NULL",
    "CREATE INDEX zeros ON stored (username_value) WHERE blacklisted_by_user = 0",
    "CREATE INDEX computed ON stored (blacklisted_by_user, lower(username_value) || 'x')",
    "CREATE INDEX covering ON stored (blacklisted_by_user, username_value, origin_url, "
    "password_value)",
    "CREATE TRIGGER react AFTER INSERT ON stored BEGIN SELECT instr(new.origin_url, 'x'); END",
    "CREATE VIEW overview AS SELECT count(*), max(origin_url) FROM stored",
    "CREATE VIRTUAL TABLE words USING fts4(a, b)",
    "ALTER TABLE stored ADD COLUMN more DEFAULT 'none'",
    "DELETE FROM stored WHERE id % 3 = 0",
    "ANALYZE",
};

constexpr std::array<std::string_view, 8> views = {
    "SELECT * FROM stored",
    "SELECT s.* FROM stored s JOIN stored t ON s.id = t.id",
    "SELECT origin_url, username_value, password_value, 0 AS blacklisted_by_user FROM stored "
    "ORDER BY username_value, id",
    "SELECT DISTINCT trim(origin_url, 'h') AS origin_url, username_value, password_value, "
    "blacklisted_by_user FROM stored",
    "SELECT origin_url, replace(username_value, 'user', 'u') AS username_value, password_value, "
    "blacklisted_by_user FROM stored WHERE instr(origin_url, 'site') > 0",
    "SELECT origin_url, username_value, password_value, blacklisted_by_user FROM stored UNION "
    "SELECT json_array(id), (SELECT count(*) FROM stored), x'01', 0 FROM stored",
    "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 50) SELECT 'u' || v AS "
    "origin_url, v || '' AS username_value, CAST(v AS BLOB) AS password_value, v % 3 AS "
    "blacklisted_by_user FROM n",
    "SELECT max(origin_url) AS origin_url, username_value, password_value, blacklisted_by_user "
    "FROM stored WHERE username_value LIKE 'user%' GROUP BY 2, 3",
};

constexpr std::array<std::string_view, 4> tables = {
    "CREATE TABLE stored (id INTEGER PRIMARY KEY, origin_url, username_value, password_value, "
    "blacklisted_by_user)",
    "CREATE TABLE stored (id, blacklisted_by_user INTEGER, password_value BLOB, username_value "
    "TEXT, origin_url TEXT)",
    "CREATE TABLE stored (id INTEGER NOT NULL, origin_url TEXT COLLATE NOCASE, username_value, "
    "password_value, "
    "blacklisted_by_user, PRIMARY KEY (blacklisted_by_user, id)) WITHOUT ROWID",
    "CREATE TABLE stored (id INTEGER PRIMARY KEY, origin_url, username_value, password_value, "
    "blacklisted_by_user, "
    "filler DEFAULT (hex(zeroblob(100))), UNIQUE (id, username_value))"};

constexpr std::array<std::string_view, 2> computed = {
    "CREATE TABLE logins (id, o, u, origin_url AS (lower(o)), username_value AS (u || '') STORED, "
    "password_value AS (CAST(u AS BLOB)), blacklisted_by_user AS (id % 2))",
    "CREATE TABLE logins (id, o, u, origin_url AS (o), username_value AS (origin_url), "
    "password_value AS (json_array(u)), blacklisted_by_user AS (0))"};

/// A random database that is sound.
class RandomDatabase {
public:
    explicit RandomDatabase(std::size_t seed) : _random(seed) {
        const std::string made = _folder / "made";
        const Connection connection(made);
        execute(connection, "PRAGMA page_size = " + std::to_string(512U << _random.below(8)));
        execute(connection, "PRAGMA encoding = '" + std::string(_random.oneOf(encodings)) + "'");
        execute(connection, "PRAGMA auto_vacuum = " + std::to_string(_random.below(3)));
        execute(connection, _random.below(5) == 0 ? "PRAGMA journal_mode = WAL"
                                                  : "PRAGMA journal_mode = MEMORY");
        execute(connection, "PRAGMA wal_autocheckpoint = " + std::to_string(_random.below(20)));
        execute(connection, "BEGIN");
        makeTables(connection);
        for (std::size_t count = _random.below(8); count > 0; --count) {
            execute(connection, named(_random.oneOf(bystanders)));
        }
        execute(connection, "COMMIT");
        // As if the process that made it had ended here
        for (const std::string suffix : {"", "-wal"}) {
            if (std::filesystem::exists(made + suffix)) {
                std::filesystem::copy_file(made + suffix, path() + suffix);
            }
        }
    }

    [[nodiscard]] std::string path() const { return _folder / "Login Data"; }

    /// What it was made by.
    [[nodiscard]] const std::string& statements() const { return _statements; }

private:
    static constexpr std::array<std::string_view, 3> encodings = {"UTF-8", "UTF-16le", "UTF-16be"};

    void makeTables(const Connection& connection) {
        const std::size_t kind = _random.below(4);
        _table = kind == 0 ? "stored" : "logins";
        execute(connection, named(kind == 1 ? _random.oneOf(computed) : _random.oneOf(tables)));
        execute(connection,
                "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < " +
                    std::to_string(1 + _random.below(200)) + ") INSERT INTO " + _table +
                    (kind == 1 ? " (id, o, u) SELECT v, " + value() + ", " + value()
                               : " (id, origin_url, username_value, password_value, "
                                 "blacklisted_by_user) SELECT v, " +
                                     value() + ", " + value() + ", " + value() + ", v % 3 % 2") +
                    " FROM n");
        if (kind == 0) {
            execute(connection, "CREATE VIEW logins AS " + std::string(_random.oneOf(views)));
        }
        for (std::size_t count = _random.below(30) == 0 ? 200 : 0; count > 0; --count) {
            execute(connection, "CREATE TABLE t" + std::to_string(count) + " (v DEFAULT (date()))");
        }
    }

    /// An expression of a value for each row.
    std::string value() {
        return "CASE v % 3 WHEN 0 THEN " + std::string(_random.oneOf(values)) + " ELSE " +
               std::string(_random.oneOf(values)) + " END";
    }

    /// A statement about "stored", about the table that there is instead.
    [[nodiscard]] std::string named(std::string_view statement) const {
        constexpr std::string_view name = "stored";
        std::string text(statement);
        for (std::size_t place = text.find(name); place != std::string::npos;
             place = text.find(name, place + 1)) {
            text.replace(place, name.size(), _table);
        }
        return text;
    }

    /// Executes a statement, unless SQLite does not take it for this database.
    void execute(const Connection& connection, const std::string& statement) {
        try {
            connection.execute({statement});
            _statements += statement + ";\n";
        } catch (const std::runtime_error&) {
            _statements += "-- " + statement + "\n";
        }
    }

    TemporaryFolder _folder;
    RandomText _random;
    std::string _table;
    std::string _statements;
};

TEST(SQLiteReferenceTest, agreesOnRandomDatabases) {
    const std::size_t count = affordable(200UZ);
    ASSERT_TRUE(allowDescriptors(8 * count + 100));
    std::size_t rows = 0;
    for (std::size_t seed = 0; seed < count; ++seed) {
        const RandomDatabase database(seed);
        const std::string query =
            seed % 4 == 0 ? "SELECT * FROM logins" : ChromeImporter::statement();
        ImportMemory memory;
        SQLiteFileProxy proxy(database.path(), memory);
        const std::vector<Values> read = copyOf(proxy.select(query));
        ASSERT_TRUE(read == referenceSelect(database.path(), query) &&
                    proxy.ending() == SQLiteEnding::complete)
            << seed << ": " << query << '\n'
            << database.statements();
        rows += read.size();
    }
    EXPECT_GT(rows, 10 * count);
}

} // namespace

} // namespace Rellinor::Tests
