#pragma once

#include <filesystem>
#include <string>

#include <sqlite3.h>

namespace Rellinor::Benchmarks {

/// A connection to a database. Its failures are thrown.
class Database {
public:
    explicit Database(const std::filesystem::path& file);

    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    void execute(const std::string& statements) const;

    [[nodiscard]] ::sqlite3_stmt* prepared(const char* text) const;

private:
    ::sqlite3* _connection = nullptr;
};

} // namespace Rellinor::Benchmarks
