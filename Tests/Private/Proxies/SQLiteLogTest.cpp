// Write-ahead logs that make more of a database than there is.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Proxies/SQLiteFileProxy.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/SQLiteBytes.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Rows = std::vector<Values>;

constexpr std::size_t pageSize = 512;

/// A number of seven bits to a byte, of which all but the last have the eighth.
std::string shortNumber(std::size_t value) {
    std::string bytes(1, static_cast<char>(value & 0x7FU));
    while ((value >>= 7U) > 0) {
        bytes.insert(0, 1, static_cast<char>((value & 0x7FU) | 0x80U));
    }
    return bytes;
}

/// A log whose checksums are right.
class Log {
public:
    Log() {
        add(sqliteNumber(0x377F0683) + sqliteNumber(3007000) + sqliteNumber(pageSize) +
                sqliteNumber(0) + salt,
            "");
    }

    /// @param pagesOfAll  how many the database is said to have from now on; 0 if more pages follow
    void addPage(std::size_t page, std::size_t pagesOfAll, const std::string& contents) {
        const std::string header = sqliteNumber(page) + sqliteNumber(pagesOfAll);
        sum(header + contents);
        _bytes += header + salt + sqliteNumber(_one) + sqliteNumber(_other) + contents;
    }

    [[nodiscard]] const std::string& bytes() const { return _bytes; }

private:
    static constexpr const char* salt = "saltsalt";

    void add(const std::string& header, const std::string& rest) {
        sum(header);
        _bytes += header + sqliteNumber(_one) + sqliteNumber(_other) + rest;
    }

    void sum(std::string_view bytes) {
        for (std::size_t place = 0; place < bytes.size(); place += 8) {
            _one += wordAt(bytes, place) + _other;
            _other += wordAt(bytes, place + 4) + _one;
        }
    }

    static std::uint32_t wordAt(std::string_view bytes, std::size_t place) {
        std::uint32_t word = 0;
        for (const char byte : bytes.substr(place, 4)) {
            word = word << 8U | static_cast<unsigned char>(byte);
        }
        return word;
    }

    std::string _bytes;
    std::uint32_t _one = 0;
    std::uint32_t _other = 0;
};

/// The page of a table with one row: a text of so many letters, and "y". What does not stand there
/// stands on the third page, and the fourth, and so on.
std::string pageWithLongText(std::size_t length) {
    constexpr std::size_t most = pageSize - 35;
    constexpr std::size_t least = (pageSize - 12) * 32 / 255 - 23;

    const std::string types = shortNumber(13 + 2 * length) + shortNumber(13 + 2);
    const std::string header = shortNumber(types.size() + 1) + types;
    const std::size_t payload = header.size() + length + 1;
    const std::size_t wanted = least + (payload - least) % (pageSize - 4);
    const std::size_t local = wanted <= most ? wanted : least;
    const std::string cell = shortNumber(payload) + shortNumber(1) + header +
                             std::string(local - header.size(), 'x') + sqliteNumber(3);
    const std::size_t place = pageSize - cell.size();
    std::string page = sqliteNumber(13, 1) + sqliteNumber(0, 2) + sqliteNumber(1, 2) +
                       sqliteNumber(place, 2) + sqliteNumber(0, 1) + sqliteNumber(place, 2);
    page.resize(place);
    return page + cell;
}

/// What is read of a database with a text of so many letters, whose latest changes stand in its
/// log.
///
/// @param pagesOfAll  how many pages it says it has
/// @param afterThird  where the text goes on behind the third page
Rows readWithLongText(std::size_t length, std::size_t pagesOfAll, std::size_t afterThird) {
    const TemporaryFolder folder;
    const std::string path =
        database(folder, {"PRAGMA page_size = 512", "CREATE TABLE t (a, b)",
                          "CREATE TABLE filler (v)", "PRAGMA journal_mode = WAL"});
    std::string first = contentsOf(path).substr(0, pageSize);
    first.replace(28, 4, sqliteNumber(pagesOfAll));
    Log log;
    log.addPage(1, 0, first);
    log.addPage(2, 0, pageWithLongText(length));
    log.addPage(3, 0, sqliteNumber(afterThird) + std::string(pageSize - 4, 'x'));
    log.addPage(4, pagesOfAll, sqliteNumber(0) + std::string(pageSize - 4, 'x'));
    (void)folder.file("database-wal", log.bytes());

    ImportMemory memory;
    return copyOf(SQLiteFileProxy(path, memory).select("SELECT a FROM t"));
}

TEST(SQLiteLogTest, holdsAValueOfSeveralPages) {
    EXPECT_EQ(readWithLongText(1000, 4, 4), (Rows{{{"a", std::string(1000, 'x')}}}));
}

TEST(SQLiteLogTest, holdsNoValueThatIsLongerThanAllOfIt) {
    EXPECT_EQ(readWithLongText(50'000'000, 0x3FFFFFFF, 3).size(), 0U);
}

} // namespace

} // namespace Rellinor::Tests
