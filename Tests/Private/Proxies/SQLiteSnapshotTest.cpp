// Databases through the second door: they are read from a copy of what stands in their files.

#include "Private/Proxies/SQLiteSnapshot.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <Rellinor/ExportReader.hpp>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Files.hpp"
#include "Tests/Support/HostileDatabases.hpp"
#include "Tests/Support/OtherProcess.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/SQLiteBytes.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Rows = std::vector<Values>;

constexpr std::uint64_t anySize = std::numeric_limits<std::uint64_t>::max();

/// What a database holds in "SELECT a FROM t".
Rows rowsAt(const std::string& path, SQLiteFaithfulness faithfulness = SQLiteFaithfulness::whole) {
    ImportMemory memory;
    auto snapshot = SQLiteSnapshot::of(ExportFile::atPath(path), anySize).value();
    return copyOf(SQLiteFileProxy(snapshot, faithfulness, memory).select("SELECT a FROM t"));
}

ImportedExport readAs(ImportSource source, const std::string& path) {
    return readExport(ExportFile::atPath(path), {.as = source, .onProgress = {}, .limits = {}});
}

std::vector<std::string_view> leftOutSideFiles(const ImportReport& report) {
    std::vector<std::string_view> names;
    for (const Finding& finding : report.findings()) {
        if (finding.kind == FindingKind::leftOutSideFile) {
            names.push_back(finding.field);
        }
    }
    return names;
}

const Statements someRows = {"CREATE TABLE t (a)", "INSERT INTO t VALUES ('one'), ('two')"};
const Rows oneAndTwo = {{{"a", "one"}}, {{"a", "two"}}};

/// A folder with a database whose files another process has left.
class SQLiteSnapshotTest : public testing::Test {
protected:
    /// Leaves a database as it is when its writer dies.
    void leave(const Statements& statements) const {
        dieAfter([&] { (new Connection(path()))->execute(statements); });
    }

    [[nodiscard]] std::string path() const { return _folder / "database"; }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    /// Which files are left out.
    [[nodiscard]] std::vector<std::string_view> leftOut() const {
        return leftOutSideFiles(readAs(ImportSource::chrome, path()).report);
    }

private:
    TemporaryFolder _folder;
};

using Names = std::vector<std::string_view>;

// What is read

TEST_F(SQLiteSnapshotTest, givesWhatSQLiteItselfGives) {
    for (const LoginDatabase& database : loginDatabases()) {
        const TemporaryFolder files;
        const std::string path = database.writtenTo(files);
        const Files before = filesIn(files.path());
        const ImportedExport read = readAs(database.source, path);
        EXPECT_EQ(filesIn(files.path()), before) << database.name;
        EXPECT_EQ(copyOf(read.records), outcomeOf(database.source, path)) << database.name;
        EXPECT_TRUE(read.report.findings().empty()) << database.name;
        EXPECT_EQ(read.report.failure().reason, FailureReason::none) << database.name;
    }
}

TEST_F(SQLiteSnapshotTest, givesWhatSQLiteItselfGivesOfDamagedSideFilesOrSaysSo) {
    for (const LoginDatabase& sound : loginDatabases()) {
        if (sound.files.size() < 2) {
            continue;
        }
        const std::size_t beside = sound.files.front().second.size() * 8;
        const std::size_t step = isThorough() ? 1009 : 5021;
        for (std::size_t bit = beside; bit < sound.size() * 8; bit += step) {
            LoginDatabase database = sound;
            database.flip(bit);
            const TemporaryFolder files;
            const std::string path = database.writtenTo(files);
            const ImportedExport read = readAs(database.source, path);
            if (leftOutSideFiles(read.report).empty()) {
                EXPECT_EQ(copyOf(read.records), outcomeOf(database.source, path))
                    << database.name << " " << bit;
            }
        }
    }
}

TEST_F(SQLiteSnapshotTest, hasChangesThatStandInTheLogAlone) {
    leave({"PRAGMA journal_mode = WAL", "PRAGMA wal_autocheckpoint = 0"});
    leave({"PRAGMA wal_autocheckpoint = 0", someRows[0], someRows[1], "BEGIN",
           "INSERT INTO t VALUES ('three')"});
    ASSERT_GT(std::filesystem::file_size(path() + "-wal"), 0U);
    EXPECT_EQ(rowsAt(path()), oneAndTwo);
    EXPECT_EQ(leftOut(), Names());
}

TEST_F(SQLiteSnapshotTest, hasChangesOfTheLargestPages) {
    leave({"PRAGMA page_size = 65536", "PRAGMA journal_mode = WAL"});
    leave({"PRAGMA wal_autocheckpoint = 0", someRows[0], someRows[1]});
    ASSERT_GT(std::filesystem::file_size(path() + "-wal"), 65536U);
    EXPECT_EQ(rowsAt(path()), oneAndTwo);
    EXPECT_EQ(leftOut(), Names());
}

/// A log as a machine writes it that has the high byte of a number first: with other sums.
std::string bigEndianLog(std::string log, std::size_t pageSize) {
    std::uint32_t one = 0;
    std::uint32_t other = 0;
    const auto wordAt = [&](std::size_t place) {
        std::uint32_t word = 0;
        for (const char byte : log.substr(place, 4)) {
            word = word << 8U | static_cast<unsigned char>(byte);
        }
        return word;
    };
    const auto add = [&](std::size_t place, std::size_t size) {
        for (const std::size_t end = place + size; place < end; place += 8) {
            one += wordAt(place) + other;
            other += wordAt(place + 4) + one;
        }
    };
    const auto write = [&](std::size_t place) {
        log.replace(place, 8, sqliteNumber(one) + sqliteNumber(other));
    };
    log[3] = '\x83';
    add(0, 24);
    write(24);
    for (std::size_t frame = 32; frame < log.size(); frame += 24 + pageSize) {
        add(frame, 8);
        add(frame + 24, pageSize);
        write(frame + 16);
    }
    return log;
}

TEST_F(SQLiteSnapshotTest, hasChangesThatAnotherKindOfMachineWrote) {
    leave({"PRAGMA page_size = 512", "PRAGMA journal_mode = WAL"});
    leave({"PRAGMA wal_autocheckpoint = 0", someRows[0], someRows[1]});
    const std::string log = bigEndianLog(contentsOf(path() + "-wal"), 512);
    (void)folder().file("database-wal", log);
    EXPECT_EQ(rowsAt(path()), oneAndTwo);
    EXPECT_EQ(leftOut(), Names());
    Connection(path()).execute({"PRAGMA wal_checkpoint(TRUNCATE)"}); // SQLite takes it as well
    EXPECT_EQ(rowsAt(path()), oneAndTwo);
}

TEST_F(SQLiteSnapshotTest, doesNotHaveChangesThatWereBrokenOff) {
    leave(someRows);
    leave({"PRAGMA cache_size = 1", "BEGIN", "UPDATE t SET a = 'broken off'",
           "CREATE TABLE filler (v)", "INSERT INTO filler VALUES (zeroblob(100000))"});
    ASSERT_TRUE(std::filesystem::exists(path() + "-journal"));
    EXPECT_EQ(rowsAt(path()), oneAndTwo);
    EXPECT_EQ(leftOut(), Names());
}

TEST_F(SQLiteSnapshotTest, keepsValuesWhole) {
    leave({"CREATE TABLE t (a)",
           "INSERT INTO t VALUES (9223372036854775807), (0.1), ('a' || char(0) || 'b'), (x''), "
           "(NULL)"});
    EXPECT_EQ(rowsAt(path()), (Rows{{{"a", std::numeric_limits<std::int64_t>::max()}},
                                    {{"a", 0.1}},
                                    {{"a", std::string("a\0b", 3)}},
                                    {{"a", Blob{""}}},
                                    {{"a", absent}}}));
    EXPECT_EQ(rowsAt(path(), SQLiteFaithfulness::narrowed),
              (Rows{{{"a", std::int64_t{-1}}},
                    {{"a", static_cast<double>(0.1F)}},
                    {{"a", "a"}},
                    {{"a", absent}},
                    {{"a", absent}}}));
}

TEST_F(SQLiteSnapshotTest, isMadeOfBytesInMemoryToo) {
    leave(someRows);
    const std::string bytes = contentsOf(path());
    ImportMemory memory;
    auto snapshot = SQLiteSnapshot::of(ExportFile::inMemory(bytes, "database"), anySize).value();
    EXPECT_EQ(
        copyOf(
            SQLiteFileProxy(snapshot, SQLiteFaithfulness::whole, memory).select("SELECT a FROM t")),
        oneAndTwo);
}

TEST_F(SQLiteSnapshotTest, isMadeOfADatabaseThatEndsInItsHeader) {
    leave(someRows);
    const std::string bytes = contentsOf(path());
    for (std::size_t size = 0; size <= 101; ++size) {
        const std::string part = folder().file("part", bytes.substr(0, size));
        EXPECT_EQ(copyOf(readAs(ImportSource::chrome, part).records), Outcome{}) << size;
        const ReadOptions options{.as = Layout::chromiumLogins, .onProgress = {}, .limits = {}};
        EXPECT_FALSE(readExport(ExportFile::atPath(part), options).records) << size;
    }
}

TEST_F(SQLiteSnapshotTest, isNotMadeOfMoreBytesThanItMayHave) {
    leave({"PRAGMA journal_mode = WAL", "PRAGMA wal_autocheckpoint = 0", someRows[0], someRows[1]});
    const ExportFile file = ExportFile::atPath(path());
    const std::uint64_t size = std::filesystem::file_size(path());
    ASSERT_GT(std::filesystem::file_size(path() + "-wal"), size);
    EXPECT_EQ(SQLiteSnapshot::of(file, size - 1).error(), FailureReason::tooLarge);
    EXPECT_EQ(SQLiteSnapshot::of(file, size).error(), FailureReason::tooLarge); // the log
}

// What is left as it is

TEST_F(SQLiteSnapshotTest, isNotHinderedByAWriter) {
    leave(someRows);
    const OtherProcess writer([&] {
        (new Connection(path()))
            ->execute({"PRAGMA locking_mode = EXCLUSIVE", "BEGIN EXCLUSIVE",
                       "INSERT INTO t VALUES ('three')"});
    });
    const Files before = filesIn(folder().path());
    EXPECT_EQ(rowsAt(path()), oneAndTwo);
    EXPECT_EQ(filesIn(folder().path()), before);
}

TEST_F(SQLiteSnapshotTest, doesNotTouchTheIndexOfALog) {
    leave({"PRAGMA journal_mode = WAL", "PRAGMA wal_autocheckpoint = 0", someRows[0], someRows[1]});
    for (const std::string_view index : {"", "hostile"}) {
        (void)folder().file("database-shm", index);
        EXPECT_EQ(rowsAt(path()), oneAndTwo);
        EXPECT_EQ(contentsOf(path() + "-shm"), index);
    }
}

TEST_F(SQLiteSnapshotTest, createsNothingInPlaceOfAMissingFile) {
    const ImportedExport read = readAs(ImportSource::chrome, path());
    EXPECT_EQ(copyOf(read.records), Outcome{});
    EXPECT_EQ(read.report.failure().reason, FailureReason::missing);
    EXPECT_TRUE(std::filesystem::is_empty(folder().path()));
}

TEST_F(SQLiteSnapshotTest, leavesNothingBehind) {
    leave(someRows);
    (void)rowsAt(path());
    const std::size_t descriptors = openDescriptors();
    const ::sqlite3_int64 memory = ::sqlite3_memory_used();
    for (int count = 0; count < 50; ++count) {
        EXPECT_EQ(rowsAt(path()), oneAndTwo);
        (void)readAs(ImportSource::chrome, path()); // which gives up before a statement
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_EQ(::sqlite3_memory_used(), memory);
}

TEST_F(SQLiteSnapshotTest, isReadOnTwoThreadsAtOnce) {
    leave(someRows);
    std::array<bool, 2> areRight = {true, true};
    const auto read = [&](bool& isRight) {
        for (int count = 0; count < 200; ++count) {
            isRight = isRight && rowsAt(path()) == oneAndTwo;
        }
    };
    std::thread other(read, std::ref(areRight[0]));
    read(areRight[1]);
    other.join();
    EXPECT_TRUE(areRight[0] && areRight[1]);
}

// What lies beside a database and does not belong to it

TEST_F(SQLiteSnapshotTest, leavesOutAJournalThatDoesNotBelong) {
    leave(someRows);
    const std::string header = std::string(journalMagic) + sqliteNumber(0) + sqliteNumber(0);
    const auto padded = [](std::string bytes) {
        bytes.resize(512, 'x');
        return bytes;
    };
    for (const std::string& journal :
         {std::string("somebody's"), padded(header + journalEndNaming("victim")),
          padded(header + sqliteNumber(1) + sqliteNumber(512) + sqliteNumber(4096)) +
              journalEndNaming("victim"),
          padded(header + sqliteNumber(0xFFFFFFFF) + sqliteNumber(512) + sqliteNumber(4096)),
          padded(header + sqliteNumber(1) + sqliteNumber(512) + sqliteNumber(100)),
          padded(std::string(journalMagic) + sqliteNumber(1) + sqliteNumber(0) + sqliteNumber(1) +
                 sqliteNumber(512) + sqliteNumber(4096)) +
              sqliteNumber(1) + std::string(4096, 'x') + sqliteNumber(0)}) {
        (void)folder().file("database-journal", journal);
        EXPECT_EQ(rowsAt(path()), oneAndTwo);
        EXPECT_EQ(leftOut(), Names{"-journal"});
        EXPECT_EQ(contentsOf(path() + "-journal"), journal);
    }
}

TEST_F(SQLiteSnapshotTest, leavesOutALogThatDoesNotBelong) {
    leave({"PRAGMA journal_mode = WAL", "PRAGMA wal_autocheckpoint = 0", someRows[0]});
    const std::string log = contentsOf(path() + "-wal");
    leave({"PRAGMA wal_checkpoint(TRUNCATE)", someRows[1], "PRAGMA wal_checkpoint(TRUNCATE)"});
    constexpr std::array<std::size_t, 5> places = {0, 4, 9, 16, 40}; // up to the first salt
    for (const std::size_t place : places) {
        std::string damaged = log;
        damaged[place] = static_cast<char>(damaged[place] ^ 1);
        (void)folder().file("database-wal", damaged);
        EXPECT_EQ(rowsAt(path()), oneAndTwo) << place;
        EXPECT_EQ(leftOut(), Names{"-wal"}) << place;
    }
}

TEST_F(SQLiteSnapshotTest, leavesOutWhatLiesBesideAnEmptyFile) {
    (void)folder().file("database", "");
    (void)folder().file("database-wal", "somebody's");
    (void)folder().file("database-journal", "somebody's");
    EXPECT_EQ(leftOut(), (Names{"-journal", "-wal"}));
}

TEST_F(SQLiteSnapshotTest, leavesOutWhatIsNoFile) {
    leave(someRows);
    ASSERT_EQ(::mkfifo((path() + "-wal").c_str(), S_IRUSR | S_IWUSR), 0);
    std::filesystem::create_symlink(path(), path() + "-journal");
    EXPECT_EQ(rowsAt(path()), oneAndTwo);
    EXPECT_EQ(leftOut(), (Names{"-journal", "-wal"}));
}

TEST_F(SQLiteSnapshotTest, doesNotMindAJournalThatWasUsedUp) {
    leave(someRows);
    for (const std::string_view journal : {std::string(), std::string(512, '\0')}) {
        (void)folder().file("database-journal", journal);
        EXPECT_EQ(leftOut(), Names());
    }
}

TEST_F(SQLiteSnapshotTest, looksBesideWhatALinkLeadsTo) {
    leave({"PRAGMA journal_mode = WAL", "PRAGMA wal_autocheckpoint = 0", someRows[0], someRows[1]});
    const TemporaryFolder other;
    std::filesystem::create_symlink(path(), other / "link");
    EXPECT_EQ(rowsAt(other / "link"), oneAndTwo);
}

} // namespace

} // namespace Rellinor::Tests
