// Lack of memory, at each place of an import where some is asked for.

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/Connection.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Exports.hpp"
#include "Tests/Support/Reports.hpp"
#include "Tests/Support/SQLiteMemory.hpp"

namespace Rellinor::Tests {

namespace {

using Work = std::function<void()>;

/// From one request that is refused to the next, where many are made.
std::size_t manyRequests() {
    return isThorough() ? 1 : 5;
}

/// Somebody who gives out memory.
struct Giver {
    std::size_t (*allocationsOf)(const Work&);
    void (*failAllocation)(std::size_t, const Work&);
    void (*failAllocationsFrom)(std::size_t, const Work&);
};

constexpr Giver heap = {&allocationsOf, &failAllocation, &failAllocationsFrom};
constexpr Giver sqlite = {&sqliteAllocationsOf, &failSQLiteAllocation, &failSQLiteAllocationsFrom};

const Outcome lackOfMemory = {.error = NSError("Rellinor.UnexpectedError", 0)};

class MemoryTest : public testing::TestWithParam<Export> {
protected:
    /// Does an import within `within`, which is given the import as work.
    static Outcome imported(const URL& url, const std::function<void(const Work&)>& within) {
        int completions = 0;
        std::optional<RecordsResult> delivered;
        RecordsImporter importer;
        const RecordsCompletion completion = [&](RecordsResult result) {
            ++completions;
            delivered = std::move(result);
        };
        within([&] { importer.records(url, GetParam().source, completion); });
        EXPECT_EQ(completions, 1);
        return copyOf(delivered.value());
    }

    /// What SQLite and the system keep for this process.
    struct Kept {
        ::sqlite3_int64 memory = ::sqlite3_memory_used();
        std::size_t descriptors = openDescriptors();

        [[nodiscard]] Kept since(const Kept& before) const {
            return {memory - before.memory, descriptors - before.descriptors};
        }

        /// Whether this is nothing, or no more than something else but for the message of an error.
        [[nodiscard]] bool isNothingOr(const Kept& other) const {
            constexpr ::sqlite3_int64 message = 200;
            return (descriptors == 0 && memory == 0) ||
                   (descriptors == other.descriptors && memory <= other.memory + message);
        }
    };

    /// Imports as often as memory is asked for, and lets another request fail each time. Returns
    /// how many imports failed.
    ///
    /// @param step  from one request that fails to the next
    static std::size_t importsAllOrNothing(const std::string& path, const Giver& giver,
                                           std::size_t step) {
        const URL url = URL::fileURLWithPath(path);
        const Outcome whole = imported(url, [](const Work& work) { work(); });
        std::size_t requests = 0;
        const Kept start;
        (void)imported(url, [&](const Work& work) { requests = giver.allocationsOf(work); });
        EXPECT_GT(requests, 0);
        const Kept leftByOne = Kept().since(start);
        if (!allowDescriptors(3 * requests + 100)) {
            ADD_FAILURE() << "the system does not allow so many descriptors";
        }
        std::size_t failed = 0;
        for (const auto fail : {giver.failAllocation, giver.failAllocationsFrom}) {
            for (std::size_t nth = 1; nth <= requests + 1; nth += step) {
                const std::size_t pieces = piecesInUse();
                const Kept before;
                {
                    const Outcome outcome =
                        imported(url, [&](const Work& work) { fail(nth, work); });
                    EXPECT_TRUE(outcome == whole || outcome == lackOfMemory)
                        << nth << " of " << requests << ": " << outcome;
                    failed += outcome == whole ? 0U : 1U;
                }
                EXPECT_EQ(piecesInUse(), pieces) << nth;
                const Kept left = Kept().since(before);
                EXPECT_TRUE(left.isNothingOr(leftByOne))
                    << nth << ": " << left.memory << ", " << left.descriptors;
            }
        }
        return failed;
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
};

using MemoryOfFilesTest = MemoryTest;
using MemoryOfDatabasesTest = MemoryTest;

TEST_P(MemoryTest, lacksMemoryForAllOrNothing) {
    const std::string path = GetParam().written(folder(), GetParam().bytes());
    EXPECT_GT(importsAllOrNothing(path, heap, 1), 4);
}

TEST_P(MemoryTest, lacksMemoryForAllOrNothingOfWhatMakesNoSense) {
    EXPECT_GT(importsAllOrNothing(GetParam().written(folder(), "x"), heap, 1), 0);
}

TEST_P(MemoryTest, lacksMemoryForAllOrNothingOfWhatIsNotThere) {
    const std::string path = GetParam().isDatabase ? folder() / "missing/file" : folder() / "file";
    EXPECT_GT(importsAllOrNothing(path, heap, 1), 0);
}

TEST_P(MemoryOfFilesTest, lacksMemoryForAllOrNothingOfALargeFile) {
    // Large enough for large pages; line feeds mean nothing to any reader.
    const std::string bytes = GetParam().bytes().append(3'000'000, '\n');
    EXPECT_GT(importsAllOrNothing(GetParam().written(folder(), bytes), heap, 1), 4);
}

TEST_P(MemoryOfDatabasesTest, letsSQLiteLackMemoryForAllOrNothing) {
    const std::string path = GetParam().written(folder(), GetParam().bytes());
    const std::size_t requests =
        sqlite.allocationsOf([&] { (void)outcomeOf(GetParam().source, path); });
    // There are a few pieces that SQLite can do without. None of them is for keeping little.
    const std::size_t step = manyRequests();
    EXPECT_GT(importsAllOrNothing(path, sqlite, step), 2 * (requests / step) - 20);
    // No lock was left behind.
    Connection(GetParam().fileIn(folder())).execute({"BEGIN EXCLUSIVE", "COMMIT"});
}

TEST_P(MemoryOfDatabasesTest, letsSQLiteLackMemoryForWhatMakesNoSense) {
    const std::string path = GetParam().written(folder(), std::string(1000, 'x'));
    EXPECT_GT(importsAllOrNothing(path, sqlite, manyRequests()), 20 / manyRequests());
}

using MemoryOfChromeTest = MemoryTest;

TEST_P(MemoryOfChromeTest, lacksMemoryForAllOrNothingOfAView) {
    const std::string path = GetParam().importedIn(folder());
    Connection(GetParam().fileIn(folder()))
        .execute({"CREATE TABLE t (a, b)", "INSERT INTO t VALUES ('.a', 'b'), ('c', 'd')",
                  "CREATE VIEW logins AS SELECT trim(a, '.') AS origin_url, json_quote(b) AS "
                  "username_value, x'01' AS password_value, 0 AS blacklisted_by_user FROM t "
                  "WHERE (SELECT count(*) FROM t) > 0 ORDER BY 1"});
    EXPECT_EQ(outcomeOf(GetParam().source, path).passwords.size(), 2U);
    EXPECT_GT(importsAllOrNothing(path, heap, 1), 20);
    EXPECT_GT(importsAllOrNothing(path, sqlite, 7 * manyRequests()), 100 / manyRequests());
}

TEST_P(MemoryOfDatabasesTest, lacksMemoryForAllOrNothingBeforeDamageThatClaimsMemory) {
    const bool isChrome = GetParam().source == ImportSource::chrome;
    const std::string columns = isChrome ? "logins (origin_url, username_value, password_value, "
                                           "blacklisted_by_user)"
                                         : "moz_logins (hostname, encryptedUsername, "
                                           "encryptedPassword)";
    const std::string row =
        isChrome ? "('https://a.example', 'ann', x'01', 0)" : "('https://a.example', 'ann', 'x')";
    const std::string path = GetParam().importedIn(folder());
    Connection(GetParam().fileIn(folder()))
        .execute({"PRAGMA page_size = 512", "CREATE TABLE " + columns,
                  "INSERT INTO " + columns + " VALUES " + row + ", " + row + ", " + row});
    claimMemory(GetParam().fileIn(folder()));
    EXPECT_EQ(outcomeOf(GetParam().source, path).passwords.size(), 2U);
    EXPECT_GT(importsAllOrNothing(path, heap, 1), 4);
    EXPECT_GT(importsAllOrNothing(path, sqlite, manyRequests()), 100 / manyRequests());
}

TEST_P(MemoryTest, lacksMemoryForAllOrNothingWithAReport) {
    const std::string path = GetParam().written(folder(), GetParam().bytes());
    const ExportFile file = ExportFile::atPath(path);
    const auto read = [&] { return readExport(file, {.as = GetParam().source}); };
    std::size_t requests = 0;
    std::optional<ImportedExport> whole;
    requests = allocationsOf([&] { whole.emplace(read()); });
    ASSERT_TRUE(allowDescriptors(3 * requests + 100));
    std::size_t failed = 0;
    for (const auto fail : {failAllocation, failAllocationsFrom}) {
        for (std::size_t nth = 1; nth <= requests + 1; ++nth) {
            const std::size_t pieces = piecesInUse();
            {
                std::optional<ImportedExport> imported;
                fail(nth, [&] { imported.emplace(read()); });
                EXPECT_TRUE(isConsistent(*imported) || !imported->report.isComplete()) << nth;
                if (imported->records) {
                    EXPECT_EQ(copyOf(imported->records), copyOf(whole->records)) << nth;
                    EXPECT_TRUE(textOf(imported->report) == textOf(whole->report) ||
                                !imported->report.isComplete())
                        << nth;
                } else {
                    EXPECT_EQ(copyOf(imported->records), lackOfMemory) << nth;
                    EXPECT_EQ(imported->report.failure().reason, FailureReason::outOfMemory);
                    ++failed;
                }
            }
            EXPECT_EQ(piecesInUse(), pieces) << nth;
        }
    }
    EXPECT_GT(failed, 4);
}

INSTANTIATE_TEST_SUITE_P(Importers, MemoryTest, testing::ValuesIn(allExports()), nameOf);
INSTANTIATE_TEST_SUITE_P(Importers, MemoryOfFilesTest, testing::ValuesIn(allFiles()), nameOf);
INSTANTIATE_TEST_SUITE_P(Importers, MemoryOfChromeTest, testing::Values(allDatabases().at(0)),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Importers, MemoryOfDatabasesTest, testing::ValuesIn(allDatabases()),
                         nameOf);

} // namespace

} // namespace Rellinor::Tests
