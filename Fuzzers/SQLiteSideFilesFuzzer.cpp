// A database with a log or a journal beside it, any of which may hold anything. An input begins
// with what lies beside and with the size of the database, in three bytes.

#include <filesystem>
#include <fstream>
#include <new>
#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"

namespace Rellinor::Fuzzers {

namespace {

constexpr std::string_view bystanders = "somebody's";

std::size_t byteAt(std::string_view input, std::size_t place) {
    return static_cast<unsigned char>(input[place]);
}

/// A number of four bytes.
std::string number(std::size_t value) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>(value >> shift & 0xFFU);
    }
    return bytes;
}

/// What a journal ends with that has SQLite delete a file.
std::string recordNaming(const std::string& file) {
    std::size_t sum = 0;
    for (const char character : file) {
        sum += static_cast<unsigned char>(character);
    }
    return file + number(file.size()) + number(sum) + "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
}

void select(const std::string& path) {
    ImportMemory memory;
    SQLiteFileProxy proxy(path, memory);
    try {
        for (const SQLiteRow& row : proxy.select("SELECT a, b FROM t")) {
            for (const std::string_view name : row.names()) {
                expect(row[name].has_value());
            }
        }
    } catch (const std::bad_alloc&) {
        // SQLite says so of a damaged cell that claims nearly 4 GiB.
        return;
    }
}

} // namespace

void fuzz(std::string_view input) {
    static const InputDatabase database("database");
    static const InputFile bystander("bystander");
    if (input.size() < 3) {
        return;
    }
    const bool isJournal = byteAt(input, 0) % 4 != 0;
    const bool namesBystander = byteAt(input, 0) % 4 == 1;
    const std::size_t size = byteAt(input, 1) * 256 + byteAt(input, 2);
    const std::string_view files = input.substr(3);
    std::string beside(files.substr(std::min(size, files.size())));
    if (namesBystander) {
        beside += recordNaming(bystander.path());
    }

    database.write(files.substr(0, size));
    const std::string path = database.path() + (isJournal ? "-journal" : "-wal");
    std::ofstream(path, std::ios::binary) << beside;
    bystander.write(bystanders);
    select(database.path());
    bystander.expectUnchanged(bystanders);
    expect(std::filesystem::file_size(database.path()) <= 16 * (files.size() + 1000));
}

} // namespace Rellinor::Fuzzers
