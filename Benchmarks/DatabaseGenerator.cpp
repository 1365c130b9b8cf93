#include "Benchmarks/DatabaseGenerator.hpp"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "Benchmarks/Database.hpp"

namespace Rellinor::Benchmarks {

namespace {

// Numbers drawn from the row's own and the seed, so that they are the same everywhere.
constexpr const char* rowsOfChrome =
    "WITH RECURSIVE n AS (SELECT 1 AS i UNION ALL SELECT i + 1 FROM n WHERE i < ?1) "
    "INSERT INTO logins (origin_url, action_url, username_element, username_value, "
    "password_element, password_value, submit_element, signon_realm, date_created, "
    "blacklisted_by_user, scheme, password_type, times_used, form_data, display_name, icon_url, "
    "federation_url, skip_zero_click, generation_upload_status, possible_username_pairs, "
    "date_last_used, moving_blocked_for, date_password_modified) "
    "SELECT 'https://' || printf('%x', i * ?2 * 2654435761 % 4294967296) || "
    "'.example/account/sign-in', "
    "'https://' || i || '.example/session', 'email', 'user' || i || '@mail.example', 'password', "
    "CAST('v10' || printf('%016x', i * ?2 * 40503) AS BLOB), '', 'https://' || i || '.example/', "
    "13340000000000000 + i, i % 20 = 0, 0, 0, i % 50, x'', '', '', '', 0, 0, x'', "
    "13350000000000000 + i, x'', 13340000000000000 + i FROM n";

constexpr const char* rowsOfFirefox =
    "WITH RECURSIVE n AS (SELECT 1 AS i UNION ALL SELECT i + 1 FROM n WHERE i < ?1) "
    "INSERT INTO moz_logins SELECT i, "
    "'https://' || printf('%x', i * ?2 * 2654435761 % 4294967296) || '.example', NULL, "
    "'https://' || i || '.example', 'user', 'pass', "
    "'MDIEEPgAAAAAAAAAAAAAAAAAAAEwFAYIKoZIhvcNAwcECG' || printf('%024x', i * ?2 * 40503) || '==', "
    "'MDIEEPgAAAAAAAAAAAAAAAAAAAEwFAYIKoZIhvcNAwcECG' || printf('%028x', i * ?2 * 69069) || '==', "
    "'{0d7e2a10-1c2d-4b3e-8f40-' || printf('%012x', i) || '}', 1, 1300000000000 + i, "
    "1300000100000 + i, 1300000000000 + i, i % 50 FROM n";

std::string contentsOf(const char* path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

void make(const std::filesystem::path& file, const std::string& schema, const char* statement,
          std::size_t logins, std::uint64_t seed) {
    std::filesystem::remove(file);
    const Database database(file);
    database.execute("PRAGMA page_size = 2048; PRAGMA cache_size = -500000; "
                     "PRAGMA synchronous = OFF; BEGIN; " +
                     schema);
    ::sqlite3_stmt* const rows = database.prepared(statement);
    ::sqlite3_bind_int64(rows, 1, static_cast<::sqlite3_int64>(logins));
    ::sqlite3_bind_int64(rows, 2, static_cast<::sqlite3_int64>(seed));
    const int result = ::sqlite3_step(rows);
    ::sqlite3_finalize(rows);
    if (result != SQLITE_DONE) {
        throw std::runtime_error("the logins cannot be written");
    }
    database.execute("COMMIT");
}

} // namespace

void makeChromeDatabase(const std::filesystem::path& file, std::size_t logins, std::uint64_t seed) {
    make(file, contentsOf(RELLINOR_FIXTURES "/Chrome/schema.sql"), rowsOfChrome, logins, seed);
}

void makeFirefoxDatabase(const std::filesystem::path& file, std::size_t logins,
                         std::uint64_t seed) {
    make(file, contentsOf(RELLINOR_FIXTURES "/Firefox/signons.sql"), rowsOfFirefox, logins, seed);
}

} // namespace Rellinor::Benchmarks
