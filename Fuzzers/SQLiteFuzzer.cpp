// The rows of a database, against those of a connection of its own.

#include <new>
#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Reference/DatabaseReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

Tests::DatabaseValue copyOf(const SQLiteValue& value) {
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
        return Tests::Bytes(blob->begin(), blob->end());
    }
    expect(value.isAbsent());
    return {};
}

Tests::DatabaseRow copyOf(const SQLiteRow& row) {
    Tests::DatabaseRow copy;
    for (const std::string_view name : row.names()) {
        const auto value = row[name];
        expect(value.has_value());
        copy[std::string(name)] = copyOf(*value);
    }
    return copy;
}

constexpr std::string_view query = "SELECT a, b, c AS a, * FROM t";

void compare(SQLiteFileProxy& proxy, const std::string& path) {
    const SQLiteRows rows = proxy.select(query);
    if (!Tests::isSoundDatabase(path)) {
        for (const SQLiteRow& row : rows) {
            static_cast<void>(copyOf(row));
        }
        return;
    }
    const auto expected = Tests::referenceSelect(path, std::string(query));
    expect(rows.size() == expected.size());
    auto next = expected.begin();
    for (const SQLiteRow& row : rows) {
        expect(copyOf(row) == *next);
        ++next;
    }
}

} // namespace

void fuzz(std::string_view input) {
    static const InputDatabase database("database");
    database.write(input);

    ImportMemory memory;
    SQLiteFileProxy proxy(database.path(), memory);
    try {
        compare(proxy, database.path());
    } catch (const std::bad_alloc&) {
        // SQLite says so of a damaged cell that claims nearly 4 GiB.
        expect(!Tests::isSoundDatabase(database.path()));
    }
    database.expectUnchanged(input);
}

} // namespace Rellinor::Fuzzers
