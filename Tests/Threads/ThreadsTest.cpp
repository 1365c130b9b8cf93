#include <barrier>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include <Rellinor/Rellinor.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Records.hpp"

// Importers on threads of their own do not disturb each other. The preset tsan runs this under the
// sanitizer of threads.

namespace Rellinor::Tests {

namespace {

constexpr std::size_t threads = 4;
constexpr std::size_t imports = 3; // of each file, by each thread

struct Import {
    ImportSource source;
    std::string path;
};

/// Of every source, some that fail among them.
std::vector<Import> allImports() {
    using enum ImportSource;
    const std::string exports = RELLINOR_EXAMPLES;
    const std::string vault = RELLINOR_VAULT;
    const std::string fixtures = RELLINOR_FIXTURES;
    return {
        {chrome, exports + "/Chrome/Login Data"},
        {chrome, vault + "/Chrome/Login Data"},
        {lastPass, vault + "/LastPass/export.csv"},
        {lastPass, fixtures + "/LastPass/backslashes.csv"},
        {lastPass, fixtures + "/LastPass/eight-columns.csv"},
        {dashlane, vault + "/Dashlane/export.csv"},
        {dashlane, fixtures + "/Dashlane/identifiers.csv"},
        {onePassword, vault + "/OnePassword/export.1pif"},
        {onePassword, vault + "/LastPass/export.csv"},
        {tirel, vault + "/Tirel/export.json"},
        {tirel, vault + "/Firefox/current.profile/logins.json"},
        {keePass, vault + "/KeePass/export.csv"},
        {keePass, fixtures + "/KeePass/seven-columns.csv"},
        {keePassXC, vault + "/KeePassXC/export.csv"},
        {firefox, vault + "/Firefox/current.profile"},
        {firefox, vault + "/Firefox/old.profile"},
        {firefox, vault},
    };
}

Outcome outcomeBy(RecordsImporter& importer, const Import& import) {
    Outcome outcome;
    importer.records(URL::fileURLWithPath(import.path), import.source,
                     [&](const RecordsResult& result) { outcome = copyOf(result); });
    return outcome;
}

TEST(ThreadsTest, importAsOneThreadDoes) {
    const std::vector<Import> all = allImports();
    std::vector<Outcome> expected;
    for (const Import& import : all) {
        expected.push_back(outcomeOf(import.source, import.path));
    }

    std::barrier begin(static_cast<std::ptrdiff_t>(threads));
    std::vector<std::vector<std::size_t>> different(threads); // by thread, as places in the list
    {
        std::vector<std::jthread> running;
        running.reserve(threads);
        for (std::size_t thread = 0; thread < threads; ++thread) {
            running.emplace_back([&, thread] {
                begin.arrive_and_wait();
                RecordsImporter importer;
                // Half of them begin elsewhere, so that the same file is read at the same time as
                // well as different ones.
                for (std::size_t turn = 0; turn < imports * all.size(); ++turn) {
                    const std::size_t place = (turn + thread / 2 * 5) % all.size();
                    if (outcomeBy(importer, all[place]) != expected[place]) {
                        different[thread].push_back(place);
                    }
                }
            });
        }
    }
    EXPECT_EQ(different, std::vector<std::vector<std::size_t>>(threads));
}

TEST(ThreadsTest, letGoOfRecordsOnAnother) {
    const Import import = {ImportSource::tirel, std::string(RELLINOR_VAULT) + "/Tirel/export.json"};
    std::vector<RecordsResult> results;
    RecordsImporter().records(
        URL::fileURLWithPath(import.path), import.source,
        [&](const RecordsResult& result) { results.assign(threads, result); });
    const Outcome expected = copyOf(results.front());

    std::vector<int> same(threads);
    {
        std::vector<std::jthread> running;
        running.reserve(threads);
        for (std::size_t thread = 0; thread < threads; ++thread) {
            running.emplace_back([&, thread, result = std::move(results[thread])]() mutable {
                same[thread] = copyOf(result) == expected ? 1 : 0;
                result = RecordsResult();
            });
        }
    }
    EXPECT_EQ(same, std::vector<int>(threads, 1));
}

} // namespace

} // namespace Rellinor::Tests
