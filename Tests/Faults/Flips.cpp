// Reads login databases of which one bit is flipped, through both doors.
//
//     rellinor-flips COUNT SEED
//
// COUNT flips, one after the other in all pages of all databases. An import that stops the process,
// does not end or does not answer once is told with its number. Processes of their own do the work,
// since each import leaves a connection behind.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Files.hpp"
#include "Tests/Support/HostileDatabases.hpp"
#include "Tests/Support/Records.hpp"

namespace {

using namespace Rellinor;        // NOLINT(google-build-using-namespace)
using namespace Rellinor::Tests; // NOLINT(google-build-using-namespace)

constexpr unsigned longest = 30; // seconds that one may take
constexpr std::size_t pageSize = 512;
constexpr std::size_t flipsOfProcess = 250;

/// A bit of the page whose turn it is.
std::size_t bitOf(const LoginDatabase& database, std::size_t number, std::mt19937_64& random) {
    const std::size_t page = number % (database.size() / pageSize);
    return (page * pageSize + random() % pageSize) * 8 + random() % 8;
}

/// Reads a database through both doors. Whether all went as it should, and nothing was written but
/// what was broken off is rolled back.
bool isRead(const LoginDatabase& database) {
    const TemporaryFolder folder;
    const std::string path = database.writtenTo(folder);
    const Files before = filesIn(folder.path());
    // Before the import, which may roll back what was broken off.
    (void)readExport(ExportFile::atPath(path));
    if (!areReadOnly(before, filesIn(folder.path()))) {
        return false;
    }
    int completions = 0;
    std::optional<RecordsResult> delivered;
    RecordsImporter().records(URL::fileURLWithPath(path), database.source,
                              [&](RecordsResult result) {
                                  ++completions;
                                  delivered = std::move(result);
                              });
    if (completions != 1 || !*delivered) {
        return false;
    }
    (void)copyOf(*delivered);
    return database.isBrokenOff() || areReadOnly(before, filesIn(folder.path()));
}

/// Does the flips from `first` up to `last`. Returns how many went wrong.
int readAll(std::vector<LoginDatabase>& databases, std::size_t first, std::size_t last,
            std::size_t seed) {
    int failures = 0;
    for (std::size_t number = first; number < last; ++number) {
        LoginDatabase& database = databases[number % databases.size()];
        std::mt19937_64 random(seed + number);
        const std::size_t bit = bitOf(database, number / databases.size(), random);
        database.flip(bit);
        ::alarm(longest);
        if (!isRead(database)) {
            std::printf("flip %zu, of bit %zu of %s, was not answered well\n", number, bit,
                        std::string(database.name).c_str());
            ++failures;
        }
        ::alarm(0);
        database.flip(bit);
    }
    return failures;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3 || !allowDescriptors(4 * flipsOfProcess)) {
        std::puts("usage: rellinor-flips COUNT SEED");
        return 2;
    }
    const std::size_t count = std::strtoull(argv[1], nullptr, 10);
    const std::size_t seed = std::strtoull(argv[2], nullptr, 10);
    std::vector<LoginDatabase> databases = loginDatabases();
    int failures = 0;
    for (std::size_t first = 0; first < count; first += flipsOfProcess) {
        const std::size_t last = std::min(first + flipsOfProcess, count);
        std::fflush(stdout);
        const ::pid_t child = ::fork();
        if (child == 0) {
            std::exit(readAll(databases, first, last, seed) == 0 ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        if (status != 0) {
            std::printf("among the flips from %zu to %zu: status %d\n", first, last, status);
            ++failures;
        }
    }
    std::printf("%zu flips in %zu databases, %d processes failed\n", count, databases.size(),
                failures);
    return failures == 0 ? 0 : 1;
}
