#include "Tests/Support/Connection.hpp"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include <sqlite3.h>

namespace Rellinor::Tests {

// What was opened is closed even if this throws: to the destructor the other constructor has made
// it.
Connection::Connection(const std::string& path) : Connection() {
    if (::sqlite3_open(path.c_str(), &_connection) != SQLITE_OK) {
        throw std::runtime_error("no database can be made at " + path);
    }
    execute({"PRAGMA synchronous = OFF"}); // what tests write need not outlive the machine
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

void claimMemory(const std::string& path) {
    // A cell with a payload of 2^32 - 1 bytes, a key, and a head that goes beyond the page.
    constexpr std::size_t page = 512;
    constexpr std::size_t place = 96;
    constexpr std::size_t placeOfThird = 12;

    std::string bytes = contentsOf(path);
    bytes.replace(page + place, 7, "\x8f\xff\xff\xff\x7f\x03\x63");
    bytes.replace(page + placeOfThird, 2, std::string{'\0', char{place}});
    std::ofstream(path, std::ios::binary) << bytes;
}

void damageLongTexts(const std::string& path) {
    constexpr std::size_t pageSize = 4096;

    std::string bytes = contentsOf(path);
    std::size_t damaged = 0;
    for (std::size_t page = 0; page < bytes.size(); page += pageSize) {
        // The number of the next page stands before the text.
        const std::string_view text = std::string_view(bytes).substr(page + 4, pageSize - 4);
        if (std::ranges::all_of(text, [](char character) { return character == '0'; })) {
            bytes.replace(page, 4, 4, '\xFF');
            ++damaged;
        }
    }
    if (damaged == 0) {
        throw std::runtime_error("no long text was found in " + path);
    }
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace Rellinor::Tests
