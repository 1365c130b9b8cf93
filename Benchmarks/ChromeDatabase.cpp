#include "Benchmarks/ChromeDatabase.hpp"

#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <sqlite3.h>

namespace Rellinor::Benchmarks {

namespace {

constexpr const char* statementOfTheImporter =
    "SELECT username_value, origin_url, password_value FROM logins WHERE blacklisted_by_user = 0 "
    "AND username_value IS NOT NULL AND username_value != '' AND origin_url IS NOT NULL AND "
    "origin_url != '' AND password_value IS NOT NULL AND password_value != ''";

// Numbers drawn from the row's own, so that they are the same everywhere.
constexpr const char* statementOfTheRows =
    "WITH RECURSIVE n AS (SELECT 1 AS i UNION ALL SELECT i + 1 FROM n WHERE i < ?1) "
    "INSERT INTO logins (origin_url, action_url, username_element, username_value, "
    "password_element, password_value, submit_element, signon_realm, date_created, "
    "blacklisted_by_user, scheme, password_type, times_used, form_data, display_name, icon_url, "
    "federation_url, skip_zero_click, generation_upload_status, possible_username_pairs, "
    "date_last_used, moving_blocked_for, date_password_modified) "
    "SELECT 'https://' || printf('%x', i * 2654435761 % 4294967296) || '.example/account/sign-in', "
    "'https://' || i || '.example/session', 'email', 'user' || i || '@mail.example', 'password', "
    "CAST('v10' || printf('%016x', i * 40503) AS BLOB), '', 'https://' || i || '.example/', "
    "13340000000000000 + i, i % 20 = 0, 0, 0, i % 50, x'', '', '', '', 0, 0, x'', "
    "13350000000000000 + i, x'', 13340000000000000 + i FROM n";

class Connection {
public:
    explicit Connection(const std::filesystem::path& file) {
        if (::sqlite3_open(file.c_str(), &_connection) != SQLITE_OK) {
            throw std::runtime_error("the database cannot be opened");
        }
    }

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    ~Connection() { ::sqlite3_close(_connection); }

    void execute(const std::string& statements) const {
        if (::sqlite3_exec(_connection, statements.c_str(), nullptr, nullptr, nullptr) !=
            SQLITE_OK) {
            throw std::runtime_error(::sqlite3_errmsg(_connection));
        }
    }

    [[nodiscard]] ::sqlite3_stmt* prepared(const char* text) const {
        ::sqlite3_stmt* statement = nullptr;
        if (::sqlite3_prepare_v2(_connection, text, -1, &statement, nullptr) != SQLITE_OK) {
            throw std::runtime_error(::sqlite3_errmsg(_connection));
        }
        return statement;
    }

private:
    ::sqlite3* _connection = nullptr;
};

/// Reads one column as its type has it; returns how many bytes it has.
std::size_t sizeOf(::sqlite3_stmt* statement, int column) {
    if (::sqlite3_column_type(statement, column) == SQLITE_TEXT) {
        const unsigned char* const text = ::sqlite3_column_text(statement, column);
        return std::strlen(reinterpret_cast<const char*>(text)); // NOLINT(*-cast)
    }
    const auto size = static_cast<std::size_t>(::sqlite3_column_bytes(statement, column));
    const void* const blob = ::sqlite3_column_blob(statement, column);
    return blob == nullptr ? 0 : size;
}

std::string schema() {
    std::ifstream file(RELLINOR_FIXTURES "/Chrome/schema.sql");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

void makeChromeDatabase(const std::filesystem::path& file, std::size_t logins) {
    const Connection connection(file);
    connection.execute("PRAGMA page_size = 2048; PRAGMA synchronous = OFF; BEGIN; " + schema());
    ::sqlite3_stmt* const rows = connection.prepared(statementOfTheRows);
    ::sqlite3_bind_int64(rows, 1, static_cast<::sqlite3_int64>(logins));
    const int result = ::sqlite3_step(rows);
    ::sqlite3_finalize(rows);
    if (result != SQLITE_DONE) {
        throw std::runtime_error("the logins cannot be written");
    }
    connection.execute("COMMIT");
}

std::size_t readChromeDatabase(const std::filesystem::path& file) {
    const Connection connection(file);
    ::sqlite3_stmt* const statement = connection.prepared(statementOfTheImporter);
    std::size_t size = 0;
    while (::sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < 3; ++column) {
            size += sizeOf(statement, column);
        }
    }
    ::sqlite3_finalize(statement);
    return size;
}

} // namespace Rellinor::Benchmarks
