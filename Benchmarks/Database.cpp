#include "Benchmarks/Database.hpp"

#include <stdexcept>

namespace Rellinor::Benchmarks {

Database::Database(const std::filesystem::path& file) {
    if (::sqlite3_open(file.c_str(), &_connection) != SQLITE_OK) {
        ::sqlite3_close(_connection);
        throw std::runtime_error("the database cannot be opened");
    }
}

Database::~Database() {
    ::sqlite3_close(_connection);
}

void Database::execute(const std::string& statements) const {
    if (::sqlite3_exec(_connection, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(::sqlite3_errmsg(_connection));
    }
}

::sqlite3_stmt* Database::prepared(const char* text) const {
    ::sqlite3_stmt* statement = nullptr;
    if (::sqlite3_prepare_v2(_connection, text, -1, &statement, nullptr) != SQLITE_OK) {
        throw std::runtime_error(::sqlite3_errmsg(_connection));
    }
    return statement;
}

} // namespace Rellinor::Benchmarks
