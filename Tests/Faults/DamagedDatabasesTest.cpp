// Databases that are cut short. (Those with flipped bits are read by Flips.cpp.)

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Files.hpp"
#include "Tests/Support/HostileDatabases.hpp"
#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::size_t sector = 512;

/// How large the pages are, as the beginning of the database has it.
std::size_t pageSizeOf(const LoginDatabase& database) {
    const std::string& bytes = database.files.at(0).second;
    return static_cast<unsigned char>(bytes.at(16)) * std::size_t{256} +
           static_cast<unsigned char>(bytes.at(17));
}

TEST(DamagedDatabasesTest, giveNoMoreThanTheirBeginningIfTheyAreCutAtAnySector) {
    ASSERT_TRUE(allowDescriptors(4000));
    for (const LoginDatabase& database : loginDatabases()) {
        const TemporaryFolder folder;
        const Outcome whole = outcomeOf(database.source, database.writtenTo(folder));
        EXPECT_GT(whole.passwords.size(), 50U) << database.name;
        const std::size_t step = isThorough() ? sector : 5 * sector;
        for (std::size_t size = 0; size < database.files[0].second.size(); size += step) {
            LoginDatabase cut = database;
            cut.files[0].second.resize(size);
            const TemporaryFolder other;
            const std::string path = cut.writtenTo(other);
            const Files before = filesIn(other.path());
            const Outcome outcome = outcomeOf(cut.source, path);
            // With a journal SQLite makes of it what it was, unless there is nothing left of it.
            EXPECT_TRUE((size > 0 && cut.isBrokenOff()) ||
                        areReadOnly(before, filesIn(other.path())))
                << database.name << ' ' << size;
            EXPECT_FALSE(outcome.error) << database.name << ' ' << size;
            EXPECT_LE(outcome.passwords.size(), whole.passwords.size());
            // Of a page that is there in part, SQLite takes the rest for zeros.
            EXPECT_TRUE(size % pageSizeOf(database) != 0 || isBeginningOf(outcome, whole))
                << database.name << ' ' << size;
        }
    }
}

TEST(DamagedDatabasesTest, areReadWithALogThatIsCutAtAnySector) {
    ASSERT_TRUE(allowDescriptors(4000));
    for (const LoginDatabase& database : loginDatabases()) {
        if (database.name != "chromeLog") {
            continue;
        }
        ASSERT_EQ(database.files.size(), 2U);
        for (std::size_t size = 0; size < database.files[1].second.size(); size += sector) {
            LoginDatabase cut = database;
            cut.files[1].second.resize(size);
            const TemporaryFolder folder;
            const std::string path = cut.writtenTo(folder);
            const Files before = filesIn(folder.path());
            const Outcome outcome = outcomeOf(cut.source, path);
            EXPECT_TRUE(areReadOnly(before, filesIn(folder.path()))) << size;
            EXPECT_FALSE(outcome.error) << size;
            EXPECT_LE(outcome.passwords.size(), 60U) << size;
        }
    }
}

} // namespace

} // namespace Rellinor::Tests
