#include "Tests/Support/HostileDatabases.hpp"

#include <algorithm>
#include <filesystem>
#include <functional>

#include <sqlite3.h>

#include "Tests/Support/Connection.hpp"
#include "Tests/Support/OtherProcess.hpp"

namespace Rellinor::Tests {

namespace {

using enum ImportSource;

// NOLINTBEGIN(bugprone-suspicious-missing-comma): a statement may take several lines
const Statements chromeLogins = {
    "CREATE TABLE logins (id INTEGER PRIMARY KEY, origin_url, username_value, password_value, "
    "blacklisted_by_user INTEGER NOT NULL, signon_realm, UNIQUE (origin_url, username_value))",
    "CREATE INDEX excluded ON logins (blacklisted_by_user)",
    "CREATE TABLE filler (v)",
    "INSERT INTO filler VALUES (zeroblob(20000))",
    "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 60) "
    "INSERT INTO logins SELECT v, 'https://site' || v || '.example/', 'user' || v, "
    "randomblob(v % 40), v % 10 = 0, 'realm' FROM n",
    "INSERT INTO logins VALUES (100, 'https://long.example/' || hex(zeroblob(3000)), 'x', "
    "randomblob(9000), 0, 'realm')",
    "DROP TABLE filler"};

const Statements firefoxLogins = {
    "CREATE TABLE moz_logins (id INTEGER PRIMARY KEY, hostname TEXT NOT NULL, encryptedUsername "
    "TEXT NOT NULL, encryptedPassword TEXT NOT NULL, guid TEXT)",
    "CREATE INDEX hosts ON moz_logins (hostname)", "CREATE UNIQUE INDEX guids ON moz_logins (guid)",
    "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 60) "
    "INSERT INTO moz_logins SELECT v, 'https://site' || v || '.example', hex(randomblob(v)), "
    "hex(randomblob(v * 40)), hex(randomblob(16)) FROM n"};

// NOLINTEND(bugprone-suspicious-missing-comma)

/// What is done to make a database, on a connection to an empty one.
using Making = std::function<void(const Connection&)>;

/// The files that are there when a process that has made a database has died.
LoginDatabase made(std::string_view name, ImportSource source, const Making& make) {
    LoginDatabase database{.name = name,
                           .source = source,
                           .fileName = source == chrome ? "Login Data" : "signons.sqlite",
                           .files = {}};
    const TemporaryFolder folder;
    const std::string path = database.pathIn(folder);
    dieAfter([&] {
        // The same each time, so that what a number of a flip stands for can be had again.
        ::sqlite3_test_control(SQLITE_TESTCTRL_PRNG_SEED, 1, nullptr); // NOLINT(*-vararg)
        make(*new Connection(path)); // not closed before the process ends
    });
    for (const std::string suffix : {"", "-wal", "-journal"}) {
        if (std::filesystem::exists(path + suffix)) {
            database.files.emplace_back(suffix, contentsOf(path + suffix));
        }
    }
    return database;
}

Making doing(const std::vector<Statements>& steps) {
    return [steps](const Connection& connection) {
        for (const Statements& statements : steps) {
            connection.execute(statements);
        }
    };
}

} // namespace

bool LoginDatabase::isBrokenOff() const {
    return std::ranges::any_of(files, [](const auto& file) { return file.first == "-journal"; });
}

std::size_t LoginDatabase::size() const {
    std::size_t size = 0;
    for (const auto& [suffix, bytes] : files) {
        size += bytes.size();
    }
    return size;
}

void LoginDatabase::flip(std::size_t bit) {
    for (auto& [suffix, bytes] : files) {
        if (bit < bytes.size() * 8) {
            bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1 << (bit % 8)));
            return;
        }
        bit -= bytes.size() * 8;
    }
}

std::string LoginDatabase::writtenTo(const TemporaryFolder& folder) const {
    for (const auto& [suffix, bytes] : files) {
        (void)folder.file(std::string(fileName) + suffix, bytes);
    }
    return source == firefox ? folder.path().native() : pathIn(folder);
}

std::string LoginDatabase::pathIn(const TemporaryFolder& folder) const {
    return folder / fileName;
}

std::vector<LoginDatabase> loginDatabases() {
    const Statements smallPages = {"PRAGMA page_size = 512"};
    const Statements log = {"PRAGMA journal_mode = WAL", "PRAGMA wal_autocheckpoint = 0"};
    const Statements brokenOff = {"PRAGMA cache_size = 1", "BEGIN",
                                  "UPDATE logins SET username_value = username_value || 'x'",
                                  "DELETE FROM logins WHERE id > 30"};
    return {
        made("chrome", chrome, doing({chromeLogins})),
        made("chromeSmallPages", chrome, doing({smallPages, chromeLogins})),
        made("chromeUTF16", chrome, doing({{"PRAGMA encoding = 'UTF-16le'"}, chromeLogins})),
        made("chromeLog", chrome, doing({smallPages, log, chromeLogins})),
        made("chromeBrokenOff", chrome, doing({smallPages, chromeLogins, brokenOff})),
        made("chromeVacuum", chrome,
             doing({smallPages, {"PRAGMA auto_vacuum = FULL"}, chromeLogins})),
        made("firefox", firefox, doing({firefoxLogins})),
        made("firefoxSmallPages", firefox, doing({smallPages, firefoxLogins})),
        made("firefoxUTF16", firefox, doing({{"PRAGMA encoding = 'UTF-16be'"}, firefoxLogins})),
    };
}

bool isBeginningOf(const Outcome& part, const Outcome& whole,
                   const std::function<bool(const Password&, const Password&)>& isSame) {
    return !part.error && part.notes.empty() && part.cards.empty() &&
           part.passwords.size() <= whole.passwords.size() &&
           std::equal(part.passwords.begin(), part.passwords.end(), whole.passwords.begin(),
                      isSame);
}

} // namespace Rellinor::Tests
