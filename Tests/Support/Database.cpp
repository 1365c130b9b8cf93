#include "Tests/Support/Database.hpp"

#include <iomanip>
#include <stdexcept>

#include <sqlite3.h>

namespace Rellinor::Tests {

namespace {

Value copyOf(const SQLiteValue& value) {
    if (const auto integer = value.integer()) {
        return *integer;
    }
    if (const auto number = value.number()) {
        return *number;
    }
    if (const auto text = value.text()) {
        return std::string(*text);
    }
    if (const auto blob = value.blob()) {
        return Blob{std::string(blob->begin(), blob->end())};
    }
    if (!value.isAbsent()) {
        throw std::runtime_error("a value has no type");
    }
    return absent;
}

} // namespace

Connection::Connection(const std::string& path) {
    if (::sqlite3_open(path.c_str(), &_connection) != SQLITE_OK) {
        throw std::runtime_error("no database can be made at " + path);
    }
}

Connection::~Connection() {
    ::sqlite3_close(_connection);
}

void Connection::execute(const Statements& statements) const {
    for (const std::string& statement : statements) {
        if (::sqlite3_exec(_connection, statement.c_str(), nullptr, nullptr, nullptr) !=
            SQLITE_OK) {
            throw std::runtime_error(::sqlite3_errmsg(_connection));
        }
    }
}

std::string database(const TemporaryFolder& folder, const Statements& statements) {
    std::string path = folder / "database";
    Connection(path).execute(statements);
    return path;
}

std::ostream& operator<<(std::ostream& out, const Blob& blob) {
    return out << "bytes " << std::quoted(blob.bytes);
}

std::vector<Values> copyOf(const SQLiteRows& rows) {
    std::vector<Values> copies;
    for (const SQLiteRow& row : rows) {
        Values& values = copies.emplace_back();
        for (const std::string_view name : row.names()) {
            values[std::string(name)] = copyOf(row[name].value());
        }
    }
    return copies;
}

} // namespace Rellinor::Tests
