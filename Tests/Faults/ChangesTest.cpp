// What an import changes of a database and beside it, and what it asks the system to change.

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Connection.hpp"
#include "Tests/Support/Exports.hpp"
#include "Tests/Support/Files.hpp"
#include "Tests/Support/OtherProcess.hpp"
#include "Tests/Support/SQLiteCalls.hpp"

namespace Rellinor::Tests {

namespace {

/// A folder with the database of an export.
class ChangesTest : public testing::TestWithParam<Export> {
protected:
    ChangesTest() { (void)GetParam().written(_folder, GetParam().bytes()); }

    [[nodiscard]] std::string path() const { return GetParam().fileIn(_folder); }

    [[nodiscard]] Files files() const { return filesIn(_folder.path()); }

    /// Leaves a log and its index, as a process does that dies.
    void leaveLog() const {
        const Statements statements = {"PRAGMA journal_mode = WAL", "CREATE TABLE logged (v)",
                                       "INSERT INTO logged VALUES (zeroblob(9000))"};
        dieAfter([&] { (new Connection(path()))->execute(statements); });
    }

    /// Imports all of it; returns what SQLite asked the system to change.
    [[nodiscard]] std::vector<FileChange> changesOfImport() const {
        const SQLiteCalls calls;
        EXPECT_EQ(outcomeOf(GetParam().source, GetParam().importedIn(_folder)), GetParam().whole());
        return calls.changes();
    }

    /// The endings of the names of what was to be changed.
    [[nodiscard]] std::set<std::string> endingsOf(const std::vector<FileChange>& changes) const {
        std::set<std::string> endings;
        for (const FileChange& change : changes) {
            EXPECT_TRUE(change.path.starts_with(path())) << change;
            endings.insert(change.path.substr(path().size()));
        }
        return endings;
    }

private:
    TemporaryFolder _folder;
};

using Endings = std::set<std::string>;

TEST_P(ChangesTest, areSeen) {
    const SQLiteCalls calls;
    Connection(path()).execute({"CREATE TABLE t (v)"});
    EXPECT_EQ(endingsOf(calls.changes()), (Endings{"", "-journal"}));
    const std::set<std::string_view> expected = {"open", "pwrite", "unlink"};
    std::set<std::string_view> seen;
    for (const FileChange& change : calls.changes()) {
        seen.insert(change.call);
    }
    EXPECT_EQ(seen, expected);
}

TEST_P(ChangesTest, areNoneOfAnHonestDatabase) {
    const Files before = files();
    EXPECT_EQ(changesOfImport(), std::vector<FileChange>{});
    EXPECT_EQ(files(), before);
    EXPECT_EQ(changesOfImport(), std::vector<FileChange>{}); // a second time
    EXPECT_EQ(files(), before);
}

TEST_P(ChangesTest, areNoneWhileItIsOpenElsewhere) {
    const OtherProcess other(
        [&] { (new Connection(path()))->execute({"BEGIN IMMEDIATE", "CREATE TABLE t (v)"}); });
    const Files before = files();
    EXPECT_EQ(before.size(), 2U);
    EXPECT_EQ(changesOfImport(), std::vector<FileChange>{});
    EXPECT_EQ(files(), before);
}

TEST_P(ChangesTest, areBesideADatabaseThatKeepsALog) {
    Connection(path()).execute({"PRAGMA journal_mode = WAL"});
    const Files before = files();
    EXPECT_EQ(before.size(), 1U);
    EXPECT_EQ(endingsOf(changesOfImport()), (Endings{"-shm", "-wal"}));
    const Files after = files();
    EXPECT_EQ(after.size(), 3U);
    EXPECT_TRUE(areReadOnly(before, after));
}

TEST_P(ChangesTest, areTheIndexAloneOfADatabaseWithALog) {
    leaveLog();
    std::filesystem::remove(path() + "-shm");
    const Files before = files();
    EXPECT_EQ(before.size(), 2U);
    EXPECT_EQ(endingsOf(changesOfImport()), Endings{"-shm"});
    EXPECT_TRUE(areReadOnly(before, files()));
}

TEST_P(ChangesTest, areTheIndexAloneOfADatabaseWithALogAndItsIndex) {
    leaveLog();
    const Files before = files();
    EXPECT_EQ(before.size(), 3U);
    EXPECT_EQ(endingsOf(changesOfImport()), Endings{"-shm"});
    EXPECT_TRUE(areReadOnly(before, files()));
}

INSTANTIATE_TEST_SUITE_P(Importers, ChangesTest, testing::ValuesIn(allDatabases()), nameOf);

} // namespace

} // namespace Rellinor::Tests
