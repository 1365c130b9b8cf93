#include "Tests/Support/Connection.hpp"

#include <stdexcept>

#include <sqlite3.h>

namespace Rellinor::Tests {

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

} // namespace Rellinor::Tests
