#include "Tests/Reference/DatabaseReference.hpp"

#include <cstdint>
#include <cstring>
#include <optional>

#include <sqlite3.h>

#include "Tests/Reference/TextReference.hpp"

namespace Rellinor::Tests {

namespace {

Value valueOf(::sqlite3_stmt* statement, int column) {
    switch (::sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: {
        const std::int64_t whole = ::sqlite3_column_int64(statement, column);
        std::int32_t low = 0;
        std::memcpy(&low, &whole, sizeof low); // of a little-endian machine
        return std::int64_t{low};
    }
    case SQLITE_FLOAT:
        return static_cast<float>(::sqlite3_column_double(statement, column));
    case SQLITE_TEXT: {
        const unsigned char* character = ::sqlite3_column_text(statement, column);
        std::string text;
        for (; *character != 0; ++character) {
            text += static_cast<char>(*character);
        }
        return referenceRepairedText(text);
    }
    case SQLITE_BLOB: {
        const int size = ::sqlite3_column_bytes(statement, column);
        const auto* const bytes =
            static_cast<const char*>(::sqlite3_column_blob(statement, column));
        if (bytes == nullptr) {
            return {};
        }
        return Blob{std::string(bytes, bytes + size)};
    }
    default:
        return {};
    }
}

template <typename Type>
std::optional<Type> valueIn(const Values& row, const std::string& column) {
    const auto found = row.find(column); // which tells upper from lower case
    const Type* const value = found == row.end() ? nullptr : std::get_if<Type>(&found->second);
    return value == nullptr ? std::nullopt : std::optional(*value);
}

/// The rows that a query gives, up to an error.
///
/// @param mostArguments  of a function that it or the schema calls, or there are no rows; -1 if
///                       there may be as many as SQLite allows
std::vector<Values> selected(const std::string& path, const std::string& query, int mostArguments) {
    std::vector<Values> rows;
    ::sqlite3* connection = nullptr;
    ::sqlite3_stmt* statement = nullptr;
    const bool isOpen = ::sqlite3_open(path.c_str(), &connection) == SQLITE_OK;
    ::sqlite3_limit(connection, SQLITE_LIMIT_FUNCTION_ARG, mostArguments);
    if (isOpen &&
        ::sqlite3_prepare_v2(connection, query.c_str(), -1, &statement, nullptr) == SQLITE_OK) {
        while (::sqlite3_step(statement) == SQLITE_ROW) {
            Values& row = rows.emplace_back();
            for (int column = 0; column < ::sqlite3_column_count(statement); ++column) {
                row[::sqlite3_column_name(statement, column)] = valueOf(statement, column);
            }
        }
    }
    ::sqlite3_finalize(statement);
    ::sqlite3_close(connection);
    return rows;
}

} // namespace

std::vector<Values> referenceSelect(const std::string& path, const std::string& query) {
    return selected(path, query, -1);
}

bool isSoundDatabase(const std::string& path) {
    const std::vector<Values> ok = {{{"integrity_check", "ok"}}};
    // Views, triggers, virtual tables, generated columns.
    const std::string tricks =
        "SELECT name FROM sqlite_master WHERE type NOT IN ('table', 'index') OR rootpage = 0 OR "
        "lower(sql) GLOB '*[^a-z0-9_]as[^a-z0-9_]*' OR lower(sql) GLOB '*virtual*'";
    return referenceSelect(path, "PRAGMA integrity_check") == ok &&
           referenceSelect(path, tricks).empty() &&
           !selected(path, "SELECT 1 FROM sqlite_master", 0).empty();
}

Outcome referenceChromeImport(const std::string& path) {
    Outcome outcome;
    for (const Values& row :
         referenceSelect(path, "SELECT username_value, origin_url, password_value FROM logins "
                               "WHERE blacklisted_by_user = 0 "
                               "AND username_value IS NOT NULL AND username_value != '' "
                               "AND origin_url IS NOT NULL AND origin_url != '' "
                               "AND password_value IS NOT NULL AND password_value != ''")) {
        const auto username = valueIn<std::string>(row, "username_value");
        const auto url = valueIn<std::string>(row, "origin_url");
        const auto password = valueIn<Blob>(row, "password_value");
        if (username && url && password) {
            outcome.passwords.push_back(
                {.username = *username, .password = referenceBase64(password->bytes), .url = *url});
        }
    }
    return outcome;
}

Outcome referenceSignonsImport(const std::string& path) {
    Outcome outcome;
    for (const Values& row : referenceSelect(
             path, "SELECT hostname, encryptedUsername, encryptedPassword FROM moz_logins")) {
        const auto host = valueIn<std::string>(row, "hostname");
        const auto username = valueIn<std::string>(row, "encryptedUsername");
        const auto password = valueIn<std::string>(row, "encryptedPassword");
        if (host && username && password) {
            outcome.passwords.push_back(
                {.username = *username, .password = *password, .url = *host});
        }
    }
    return outcome;
}

std::string referenceBase64(const std::string& bytes) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::vector<bool> bits;
    for (const char character : bytes) {
        const unsigned byte = static_cast<unsigned char>(character);
        for (unsigned power = 128; power > 0; power /= 2) {
            bits.push_back(byte / power % 2 == 1);
        }
    }
    while (bits.size() % 6 != 0) {
        bits.push_back(false);
    }
    std::string text;
    for (std::size_t begin = 0; begin < bits.size(); begin += 6) {
        std::size_t letter = 0;
        for (std::size_t index = begin; index < begin + 6; ++index) {
            letter = letter * 2 + (bits[index] ? 1 : 0);
        }
        text += alphabet[letter];
    }
    while (text.size() % 4 != 0) {
        text += '=';
    }
    return text;
}

} // namespace Rellinor::Tests
