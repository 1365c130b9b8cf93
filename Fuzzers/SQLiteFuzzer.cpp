// The rows of a database, against those of a connection of its own.

#include <string>
#include <string_view>
#include <vector>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Reference/DatabaseReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

constexpr std::string_view query = "SELECT a, b, c AS a, * FROM t";

void compare(SQLiteFileProxy& proxy, const std::string& path) {
    const std::vector<Tests::Values> rows = Tests::copyOf(proxy.select(query));
    expect(!Tests::isSoundDatabase(path) ||
           rows == Tests::referenceSelect(path, std::string(query)));
}

} // namespace

void fuzz(std::string_view input) {
    static const InputDatabase database("database");
    database.write(input);

    ImportMemory memory;
    SQLiteFileProxy proxy(database.path(), memory);
    compare(proxy, database.path());
    database.expectUnchanged(input);
}

} // namespace Rellinor::Fuzzers
