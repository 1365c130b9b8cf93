// A database with a log or a journal beside it, any of which may hold anything. An input begins
// with what lies beside and with the size of the database, in three bytes.

#include <filesystem>
#include <fstream>
#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Support/SQLiteBytes.hpp"

namespace Rellinor::Fuzzers {

namespace {

constexpr std::string_view bystanders = "somebody's";

std::size_t byteAt(std::string_view input, std::size_t place) {
    return static_cast<unsigned char>(input[place]);
}

void select(const std::string& path) {
    ImportMemory memory;
    SQLiteFileProxy proxy(path, memory);
    for (const SQLiteRow& row : proxy.select("SELECT a, b FROM t")) {
        for (const std::string_view name : row.names()) {
            expect(row[name].has_value());
        }
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
        beside += Tests::journalEndNaming(bystander.path());
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
