// What lies beside a database under the names where SQLite looks for its journal and log.

#include "Private/Proxies/SQLiteSideFiles.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/SQLiteBytes.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

using Rows = std::vector<Values>;

constexpr std::size_t pageSize = 4096;
constexpr std::size_t sectorSize = 512;

/// The beginning of a journal.
///
/// @param records  how many pages follow
/// @param pages    how many the database had
std::string header(std::size_t records, std::size_t pages) {
    std::string bytes(journalMagic);
    bytes += sqliteNumber(records) + sqliteNumber(0) + sqliteNumber(pages) +
             sqliteNumber(sectorSize) + sqliteNumber(pageSize);
    bytes.resize(sectorSize);
    return bytes;
}

/// A journal that has all pages of a database.
std::string wholeJournal(std::string_view database) {
    const std::size_t pages = database.size() / pageSize;
    std::string journal = header(pages, pages);
    for (std::size_t page = 0; page < pages; ++page) {
        const std::string_view bytes = database.substr(page * pageSize, pageSize);
        std::size_t sum = 0; // of every two hundredth byte, from behind
        for (std::size_t place = pageSize - 200; place < pageSize; place -= 200) {
            sum += static_cast<unsigned char>(bytes[place]);
        }
        journal += sqliteNumber(page + 1) + std::string(bytes) + sqliteNumber(sum);
    }
    return journal;
}

/// A database of a few pages.
class SQLiteSideFilesTest : public testing::Test {
protected:
    SQLiteSideFilesTest() : _bytes(contentsOf(path())) {}

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    [[nodiscard]] std::string path(const std::string& suffix = "") const {
        return _folder / "database" + suffix;
    }

    [[nodiscard]] const std::string& bytes() const { return _bytes; }

    /// The rows that are read, as many as there are.
    [[nodiscard]] std::size_t rows(const std::string& path) {
        return copyOf(SQLiteFileProxy(path, _memory).select("SELECT a FROM t")).size();
    }

    [[nodiscard]] std::size_t rows() { return rows(path()); }

    static constexpr std::size_t allRows = 100;

private:
    TemporaryFolder _folder;
    std::string _database =
        database(_folder, {"PRAGMA page_size = 4096", "CREATE TABLE t (a)",
                           "WITH n (v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 100) "
                           "INSERT INTO t SELECT hex(zeroblob(200)) FROM n"});
    std::string _bytes;
    ImportMemory _memory;
};

// Journals that are honest

TEST_F(SQLiteSideFilesTest, playsAJournalBack) {
    std::string changed = bytes();
    changed.replace(2 * pageSize, pageSize, pageSize, 'x');
    (void)folder().file("database", changed);
    (void)folder().file("database-journal", wholeJournal(bytes()));
    EXPECT_EQ(rows(), allRows);
    EXPECT_EQ(contentsOf(path()), bytes());
}

TEST_F(SQLiteSideFilesTest, playsAJournalBackThatMakesTheDatabaseLarger) {
    (void)folder().file("database-journal", wholeJournal(bytes()));
    std::filesystem::resize_file(path(), pageSize);
    EXPECT_EQ(rows(), allRows);
    EXPECT_EQ(contentsOf(path()), bytes());
}

TEST_F(SQLiteSideFilesTest, doesNotMindWhatIsNoJournal) {
    const std::string withoutName = journalEndNaming("");
    for (const std::string_view text : {""sv, "\0"sv, "x"sv, journalMagic.substr(0, 7),
                                        journalMagic, std::string_view(withoutName)}) {
        (void)folder().file("database-journal", text);
        EXPECT_EQ(rows(), allRows) << text.size();
        EXPECT_EQ(contentsOf(path()), bytes());
    }
}

TEST_F(SQLiteSideFilesTest, playsAJournalBackWhoseEndCanNameNoFile) {
    const std::string name = folder().file("victim", "somebody's");
    const std::string longName = std::string(513, 'x'); // SQLite takes no path as long
    std::string wrongSum = journalEndNaming(name);
    wrongSum[name.size() + 7] ^= 1;
    std::string wrongLength = journalEndNaming(name);
    wrongLength[name.size() + 0] = '\x7F';
    std::string changed = bytes();
    changed.replace(2 * pageSize, pageSize, pageSize, 'x');
    for (const std::string& end : {journalEndNaming(""), journalEndNaming(longName), wrongSum,
                                   wrongLength, journalEndNaming('\0' + name)}) {
        (void)folder().file("database", changed);
        (void)folder().file("database-journal", wholeJournal(bytes()) + end);
        EXPECT_EQ(rows(), allRows) << end.size();
        EXPECT_EQ(contentsOf(path()), bytes());
        EXPECT_EQ(contentsOf(name), "somebody's");
    }
}

// Those that are not

TEST_F(SQLiteSideFilesTest, deletesNoFileThatAJournalNames) {
    const std::string victim = folder().file("victim", "somebody's");
    const std::string pageOfLocks = sqliteNumber((std::size_t{1} << 30U) / pageSize + 1);
    const std::string name = journalEndNaming(victim);
    const std::string beginning = header(0, bytes().size() / pageSize) + pageOfLocks;
    // The sum of a name with signed characters, as SQLite has it on most machines, and without
    std::string sumWithSigns = journalEndNaming("\xE9");
    sumWithSigns.replace(5, 4, "\xFF\xFF\xFF\xE9");
    // SQLite takes any of these.
    for (const std::string& journal :
         {beginning + name, name, journalEndNaming("x"), journalEndNaming(std::string(512, 'x')),
          sumWithSigns, journalEndNaming("\xE9")}) {
        (void)folder().file("database-journal", journal);
        EXPECT_EQ(rows(), 0U);
        EXPECT_EQ(contentsOf(victim), "somebody's");
        EXPECT_EQ(contentsOf(path()), bytes());
        EXPECT_EQ(contentsOf(path("-journal")), journal);
    }
}

TEST_F(SQLiteSideFilesTest, isNotMadeHugeByAJournal) {
    for (const std::size_t pages : {std::size_t{1} << 20U, std::size_t{0xFFFFFFFF}}) {
        (void)folder().file("database-journal", header(0, pages));
        EXPECT_EQ(rows(), 0U);
        EXPECT_EQ(contentsOf(path()), bytes());
    }
}

TEST_F(SQLiteSideFilesTest, isMadeSixteenTimesAsLargeByAJournalAndNoLarger) {
    const std::size_t mostPages = 16 * (bytes().size() + sectorSize) / pageSize;
    (void)folder().file("database-journal", header(0, mostPages + 1));
    EXPECT_EQ(rows(), 0U);
    EXPECT_EQ(contentsOf(path()), bytes());
    (void)folder().file("database-journal", header(0, mostPages));
    EXPECT_EQ(rows(), allRows);
    EXPECT_EQ(contentsOf(path()).size(), mostPages * pageSize);
}

TEST_F(SQLiteSideFilesTest, isNotMadeHugeByAJournalThatDoesNotTellTheSizeOfPages) {
    std::string journal = header(0, std::size_t{1} << 20U);
    journal.replace(24, 4, sqliteNumber(0));
    (void)folder().file("database-journal", journal);
    EXPECT_EQ(rows(), 0U);
    EXPECT_EQ(contentsOf(path()), bytes());
}

TEST_F(SQLiteSideFilesTest, leavesWhatLiesBesideAnEmptyFile) {
    (void)folder().file("notes", "");
    for (const std::string file : {"notes", "missing"}) {
        for (const std::string suffix : {"-journal", "-wal"}) {
            for (const std::string_view bytes : {"somebody's", "x"}) {
                const std::string beside = folder().file(file + suffix, bytes);
                EXPECT_EQ(rows(folder() / file), 0U);
                EXPECT_EQ(contentsOf(beside), bytes);
                std::filesystem::remove(beside);
            }
        }
    }
}

// What is no file

TEST_F(SQLiteSideFilesTest, doesNotWaitForAPipe) {
    for (const std::string suffix : {"-journal", "-wal"}) {
        ASSERT_EQ(::mkfifo(path(suffix).c_str(), S_IRUSR | S_IWUSR), 0);
        EXPECT_EQ(rows(), 0U) << suffix;
        EXPECT_TRUE(std::filesystem::is_fifo(path(suffix)));
        std::filesystem::remove(path(suffix));
    }
    EXPECT_EQ(rows(), allRows);
}

TEST_F(SQLiteSideFilesTest, followsNoLink) {
    const std::string elsewhere = folder().file("elsewhere", wholeJournal(bytes()));
    for (const std::string suffix : {"-journal", "-wal"}) {
        std::filesystem::create_symlink(elsewhere, path(suffix));
        EXPECT_EQ(rows(), 0U) << suffix;
        EXPECT_TRUE(std::filesystem::is_symlink(path(suffix)));
        std::filesystem::remove(path(suffix));
    }
    EXPECT_EQ(contentsOf(elsewhere), wholeJournal(bytes()));
}

TEST_F(SQLiteSideFilesTest, looksBesideWhatALinkToTheDatabaseLeadsTo) {
    const TemporaryFolder other;
    std::filesystem::create_symlink(path(), other / "link");
    EXPECT_EQ(rows(other / "link"), allRows);
    ASSERT_EQ(::mkfifo(path("-journal").c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(rows(other / "link"), 0U);
}

} // namespace

} // namespace Rellinor::Tests
