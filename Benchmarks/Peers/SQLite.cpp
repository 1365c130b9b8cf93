// The bare loop over the rows of a browser's database, once filling structs and once keeping
// nothing.

#include <cstring>
#include <utility>

#include "Benchmarks/Database.hpp"
#include "Benchmarks/Peers/Peers.hpp"
#include "Benchmarks/Peers/PlainRecords.hpp"

namespace Rellinor::Benchmarks {

namespace {

constexpr const char* statementOfChrome =
    "SELECT username_value, origin_url, password_value FROM logins WHERE blacklisted_by_user = 0 "
    "AND username_value IS NOT NULL AND username_value != '' AND origin_url IS NOT NULL AND "
    "origin_url != '' AND password_value IS NOT NULL AND password_value != ''";

constexpr const char* statementOfFirefox =
    "SELECT encryptedUsername, hostname, encryptedPassword FROM moz_logins";

const char* statementOf(const Store& store) {
    return store.source == ImportSource::chrome ? statementOfChrome : statementOfFirefox;
}

void forEachRow(const Store& store, auto&& read) {
    const Database database(store.file);
    ::sqlite3_stmt* const statement = database.prepared(statementOf(store));
    while (::sqlite3_step(statement) == SQLITE_ROW) {
        read(statement);
    }
    ::sqlite3_finalize(statement);
}

std::string valueOf(::sqlite3_stmt* statement, int column) {
    const void* const bytes = ::sqlite3_column_type(statement, column) == SQLITE_TEXT
                                  ? ::sqlite3_column_text(statement, column)
                                  : ::sqlite3_column_blob(statement, column);
    const auto size = static_cast<std::size_t>(::sqlite3_column_bytes(statement, column));
    return bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), size);
}

template <typename Records>
Records filledBy(const Store& store) {
    Records records;
    forEachRow(store, [&](::sqlite3_stmt* statement) {
        auto& login = records.logins.emplace_back();
        login.username = valueOf(statement, 0);
        login.url = valueOf(statement, 1);
        login.password = valueOf(statement, 2);
    });
    return records;
}

/// Reads type and content of a column; returns how many bytes it has.
std::size_t sizeOf(::sqlite3_stmt* statement, int column) {
    if (::sqlite3_column_type(statement, column) == SQLITE_TEXT) {
        const unsigned char* const text = ::sqlite3_column_text(statement, column);
        return std::strlen(reinterpret_cast<const char*>(text)); // NOLINT(*-cast)
    }
    const auto size = static_cast<std::size_t>(::sqlite3_column_bytes(statement, column));
    const void* const blob = ::sqlite3_column_blob(statement, column);
    return blob == nullptr ? 0 : size;
}

Delivered countedBy(const Store& store) {
    Delivered delivered;
    forEachRow(store, [&](::sqlite3_stmt* statement) {
        const std::size_t password = sizeOf(statement, 2);
        ++delivered.logins;
        delivered.bytes +=
            sizeOf(statement, 0) + sizeOf(statement, 1) +
            (store.source == ImportSource::chrome ? sizeAsBase64(password) : password);
    });
    return delivered;
}

} // namespace

void addSQLite(const Store& store, std::vector<Contestant>& peers) {
    if (store.format != StoreFormat::sqlite) {
        return;
    }
    if (store.source == ImportSource::chrome) {
        peers.push_back(contestant("sqlite", [=] { return filledBy<ChromeRecords>(store); }));
    } else {
        peers.push_back(contestant("sqlite", [=] { return filledBy<FirefoxRecords>(store); }));
    }
    peers.push_back(contestant("sqlite-nothing", [=] { return countedBy(store); }));
}

} // namespace Rellinor::Benchmarks
