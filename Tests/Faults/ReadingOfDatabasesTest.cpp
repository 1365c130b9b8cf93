// Databases that cannot be read to their end, or change meanwhile.

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Proxies/SQLiteJournal.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Connection.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/HostileDatabases.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/SQLiteCalls.hpp"
#include "Tests/Support/SystemCalls.hpp"

namespace Rellinor::Tests {

namespace {

/// A read as SQLite asks for it.
struct Read {
    int descriptor;
    void* target;
    std::size_t size;
    off_t place;

    /// Does no more of it than these bytes.
    [[nodiscard]] ssize_t done(std::size_t most) const {
        return readForSQLite(descriptor, target, std::min(size, most), place);
    }

    [[nodiscard]] ssize_t done() const { return done(size); }

    [[nodiscard]] static ssize_t failing(int error) {
        errno = error;
        return -1;
    }
};

/// An import from a database, in a folder of its own, of which reads go another way.
class Reading {
public:
    explicit Reading(const LoginDatabase& database)
        : _database(database), _imported(database.writtenTo(_folder)) {}

    [[nodiscard]] std::string path() const { return _database.pathIn(_folder); }

    /// What becomes of the import if every read goes this way.
    [[nodiscard]] Outcome withEach(const std::function<ssize_t(const Read& read)>& otherwise) {
        SQLiteCalls calls;
        calls.read = [&](int descriptor, void* target, std::size_t size, off_t place) {
            ++_reads;
            return otherwise({descriptor, target, size, place});
        };
        return outcomeOf(_database.source, _imported);
    }

    /// What becomes of it if the `nth` read, counted from 1, goes this way.
    [[nodiscard]] Outcome with(std::size_t nth,
                               const std::function<ssize_t(const Read& read)>& otherwise) {
        return withEach(
            [&](const Read& read) { return _reads == nth ? otherwise(read) : read.done(); });
    }

    /// What becomes of it if all goes well.
    [[nodiscard]] Outcome whole() {
        return withEach([](const Read& read) { return read.done(); });
    }

    /// How many there were.
    [[nodiscard]] std::size_t reads() const { return _reads; }

    [[nodiscard]] const LoginDatabase& database() const { return _database; }

    /// Whether a connection can have the database to itself, as it is or as it was.
    [[nodiscard]] bool isUnlocked() const {
        if (std::filesystem::file_size(path()) != _database.files[0].second.size()) {
            (void)_database.writtenTo(_folder);
        }
        try {
            Connection(path()).execute({"BEGIN EXCLUSIVE", "COMMIT"});
            return true;
        } catch (const std::runtime_error&) {
            return false;
        }
    }

private:
    const LoginDatabase& _database;
    TemporaryFolder _folder;
    std::string _imported;
    std::size_t _reads = 0;
};

/// Whether a text is the same as another up to some place, and what it goes on with is zeros in
/// Base64.
bool endsInZeros(std::string_view text, std::string_view whole) {
    if (text.size() > whole.size()) {
        return false;
    }
    const auto place = std::ranges::mismatch(text, whole).in1;
    // The character at the place itself stands for bits of either kind.
    const std::string_view rest(place == text.end() ? place : place + 1, text.end());
    return rest.find_first_not_of("A=") == std::string_view::npos;
}

bool isBeginning(const Outcome& part, const Outcome& whole) {
    return isBeginningOf(part, whole);
}

/// Whether the logins are the first ones of others but for zeros at the end of what they hold. For
/// a page that is beyond the end of the file, SQLite takes zeros.
bool isBeginningWithZeros(const Outcome& part, const Outcome& whole) {
    return isBeginningOf(part, whole, [](const Password& login, const Password& other) {
        return endsInZeros(login.username, other.username) &&
               endsInZeros(login.password, other.password) && endsInZeros(login.url, other.url);
    });
}

/// A login that comes later than all others, and how it gets into the database.
const Password late = {"late", "bGF0ZQ==", "https://late.example"};

Statements insertLate(const LoginDatabase& database) {
    return {
        database.source == ImportSource::chrome
            ? "INSERT INTO logins VALUES (101, 'https://late.example', 'late', x'6C617465', 0, '')"
            : "INSERT INTO moz_logins VALUES (101, 'https://late.example', 'late', "
              "'bGF0ZQ==', '')"};
}

/// Databases that differ in how they are read.
std::vector<LoginDatabase> readDatabases() {
    std::vector<LoginDatabase> databases = loginDatabases();
    std::erase_if(databases, [](const LoginDatabase& database) {
        return database.name != "chrome" && database.name != "chromeSmallPages" &&
               database.name != "chromeLog" && database.name != "chromeBrokenOff" &&
               database.name != "firefox";
    });
    return databases;
}

/// Those of them that hold what they should: nothing is to be rolled back, which goes as far as a
/// journal can be read.
std::vector<LoginDatabase> wholeDatabases() {
    std::vector<LoginDatabase> databases = readDatabases();
    std::erase_if(databases, &LoginDatabase::isBrokenOff);
    return databases;
}

/// A database beside which a journal lies, which is looked at before SQLite does.
LoginDatabase brokenOffDatabase() {
    const std::vector<LoginDatabase> databases = loginDatabases();
    return *std::ranges::find_if(databases, &LoginDatabase::isBrokenOff);
}

class ReadingOfDatabasesTest : public testing::Test {
protected:
    using Otherwise = std::function<ssize_t(const Reading& reading, const Read& read)>;
    using Holds = std::function<bool(const Outcome& outcome, const Outcome& whole)>;

    /// Lets each read of each database go this way in turn (every fifth under a sanitizer), and
    /// expects something of what becomes of the import, besides that it leaves no more behind than
    /// one that goes well. Returns how many imports gave less than the whole.
    static std::size_t expectOfEach(const std::vector<LoginDatabase>& databases,
                                    const Otherwise& otherwise, const Holds& holds) {
        std::size_t incomplete = 0;
        for (const LoginDatabase& database : databases) {
            const std::size_t before = openDescriptors();
            Reading first(database);
            const Outcome whole = first.whole();
            EXPECT_TRUE(first.isUnlocked()) << database.name;
            const std::size_t open = openDescriptors();
            EXPECT_GT(whole.passwords.size(), 50U) << database.name;
            EXPECT_GT(first.reads(), 5U) << database.name;
            for (std::size_t nth = 1; nth <= first.reads(); nth += isThorough() ? 1U : 5U) {
                Reading reading(database);
                const Outcome outcome =
                    reading.with(nth, [&](const Read& read) { return otherwise(reading, read); });
                EXPECT_GE(reading.reads(), nth) << database.name;
                EXPECT_TRUE(holds(outcome, whole))
                    << database.name << ' ' << nth << ": " << outcome;
                EXPECT_TRUE(reading.isUnlocked()) << database.name << ' ' << nth;
                incomplete += outcome == whole ? 0U : 1U;
            }
            EXPECT_LE(openDescriptors(), open + first.reads() * (open - before)) << database.name;
        }
        return incomplete;
    }

    void SetUp() override { ASSERT_TRUE(allowDescriptors(8000)); }
};

TEST_F(ReadingOfDatabasesTest, giveTheirBeginningIfAReadFails) {
    // SQLite takes the one for a damaged database and the other for a failed read.
    const auto failing = [](const Reading& reading, const Read&) {
        return Read::failing(reading.reads() % 2 == 0 ? EIO : EAGAIN);
    };
    EXPECT_GT(expectOfEach(readDatabases(), failing, isBeginning), affordable(100U));
}

TEST_F(ReadingOfDatabasesTest, giveTheirBeginningIfAReadEndsEarly) {
    const auto ending = [](const Reading&, const Read&) { return ssize_t{0}; };
    EXPECT_GT(expectOfEach(wholeDatabases(), ending, isBeginningWithZeros), affordable(100U));
}

TEST_F(ReadingOfDatabasesTest, giveTheirBeginningIfTheyAreCutMeanwhile) {
    const auto emptied = [](const Reading& reading, const Read& read) {
        std::filesystem::resize_file(reading.path(), 0);
        return read.done();
    };
    EXPECT_GT(expectOfEach(wholeDatabases(), emptied, isBeginningWithZeros), affordable(100U));
}

TEST_F(ReadingOfDatabasesTest, giveTheirBeginningIfTheyAreCutInHalfMeanwhile) {
    const auto cut = [](const Reading& reading, const Read& read) {
        constexpr std::size_t pages = 4096;
        const std::size_t size = reading.database().files[0].second.size();
        std::filesystem::resize_file(reading.path(), size / 2 / pages * pages);
        return read.done();
    };
    EXPECT_GT(expectOfEach(wholeDatabases(), cut, isBeginningWithZeros), affordable(100U));
}

TEST_F(ReadingOfDatabasesTest, areReadAsTheyWereIfBytesAreAppendedMeanwhile) {
    const auto appended = [](const Reading& reading, const Read& read) {
        const std::size_t size = std::filesystem::file_size(reading.path());
        std::filesystem::resize_file(reading.path(), size + 5000);
        return read.done();
    };
    EXPECT_EQ(expectOfEach(wholeDatabases(), appended, std::equal_to()), 0U);
}

TEST_F(ReadingOfDatabasesTest, areReadAsTheyWereOrAreIfALoginIsAddedMeanwhile) {
    std::size_t refused = 0;
    bool isAdded = false;
    const auto adding = [&](const Reading& reading, const Read& read) {
        try {
            Connection(reading.path()).execute(insertLate(reading.database()));
            isAdded = true;
        } catch (const std::runtime_error&) {
            ++refused; // the import has locked the database
            isAdded = false;
        }
        return read.done();
    };
    const auto isEither = [&](const Outcome& outcome, Outcome whole) {
        if (outcome == whole) {
            return true;
        }
        whole.passwords.push_back(late);
        return isAdded && outcome == whole;
    };
    EXPECT_GT(expectOfEach(wholeDatabases(), adding, isEither), 3U);
    EXPECT_GT(refused, affordable(100U));
}

TEST_F(ReadingOfDatabasesTest, areReadOnAfterInterruptions) {
    for (const LoginDatabase& database : readDatabases()) {
        const Outcome whole = Reading(database).whole();
        Reading reading(database);
        std::size_t reads = 0;
        EXPECT_EQ(reading.withEach([&](const Read& read) {
            return ++reads % 2 == 1 ? Read::failing(EINTR) : read.done();
        }),
                  whole)
            << database.name;
        EXPECT_GT(reads, 10U) << database.name;
    }
}

TEST_F(ReadingOfDatabasesTest, areReadInSmallPieces) {
    for (const LoginDatabase& database : readDatabases()) {
        const Outcome whole = Reading(database).whole();
        Reading reading(database);
        std::size_t reads = 0;
        EXPECT_EQ(reading.withEach([&](const Read& read) { return read.done(++reads % 5 + 1); }),
                  whole)
            << database.name;
        EXPECT_GT(reads, 1000U) << database.name;
    }
}

TEST_F(ReadingOfDatabasesTest, arePlayedBackIfTheirJournalsComeInSmallPieces) {
    const LoginDatabase database = brokenOffDatabase();
    const Outcome whole = Reading(database).whole();
    EXPECT_GT(whole.passwords.size(), 50U);
    std::size_t reads = 0;
    SystemCalls calls;
    calls.pread = [&](int descriptor, void* target, std::size_t size, off_t place) {
        return ++reads % 2 == 1 ? Read::failing(EINTR)
                                : systemReadAt(descriptor, target, std::min(size, 1UZ), place);
    };
    EXPECT_EQ(Reading(database).whole(), whole);
    EXPECT_EQ(reads, 2 * (longestEndOfJournal() + 28)); // the end and the header
}

TEST_F(ReadingOfDatabasesTest, areLeftAloneIfTheirJournalsCannotBeRead) {
    const LoginDatabase database = brokenOffDatabase();
    for (std::size_t nth = 1; nth <= 2; ++nth) {
        std::size_t reads = 0;
        Reading reading(database);
        SystemCalls calls;
        calls.pread = [&](int descriptor, void* target, std::size_t size, off_t place) {
            return ++reads == nth ? Read::failing(EIO)
                                  : systemReadAt(descriptor, target, size, place);
        };
        EXPECT_EQ(reading.whole(), Outcome{});
        EXPECT_EQ(reads, nth);
        EXPECT_EQ(contentsOf(reading.path()), database.files[0].second);
    }
}

} // namespace

} // namespace Rellinor::Tests
