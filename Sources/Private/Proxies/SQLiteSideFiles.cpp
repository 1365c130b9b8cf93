#include "Private/Proxies/SQLiteSideFiles.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include <sqlite3.h>

#include "Platform/File.hpp"

namespace Rellinor {

namespace {

// The format is that of https://www.sqlite.org/fileformat2.html#the_rollback_journal. A journal
// that belongs to several databases ends with the name of a file that lists them, the length of
// that name, the sum of its bytes, and the magic.
constexpr std::string_view magic = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
constexpr std::size_t sizeBehindName = 16;
constexpr std::size_t placeOfSum = 4;
constexpr std::size_t placeOfMagic = 8;
constexpr std::size_t placeOfPageCount = 16;
constexpr std::size_t placeOfPageSize = 24;
constexpr std::size_t sizeOfHeader = 28;
constexpr std::uint64_t largestPage = 65536;

/// By how much an honest journal may make the database larger than both are. Pages that were free
/// before a change need not be in it.
constexpr std::uint64_t largestGrowth = 16;

std::uint64_t numberAt(std::string_view bytes, std::size_t place) noexcept {
    std::uint64_t number = 0;
    for (const char byte : bytes.substr(place, 4)) {
        number = number << 8U | static_cast<unsigned char>(byte);
    }
    return number;
}

/// How large a journal makes its database.
///
/// @param header  what the journal begins with
std::uint64_t sizeAfterPlayback(std::string_view header) noexcept {
    if (!header.starts_with(magic)) {
        return 0; // it is none
    }
    const std::uint64_t pageSize = numberAt(header, placeOfPageSize);
    return numberAt(header, placeOfPageCount) * (pageSize == 0 ? largestPage : pageSize);
}

/// Whether a name has this sum. SQLite adds characters, whose sign depends on the machine; a file
/// may come from another.
bool hasSum(std::string_view name, std::uint64_t expected) noexcept {
    std::uint32_t withSign = 0;
    std::uint32_t without = 0;
    for (const char character : name) {
        withSign += static_cast<std::uint32_t>(static_cast<signed char>(character));
        without += static_cast<unsigned char>(character);
    }
    return withSign == expected || without == expected;
}

/// Whether a journal names another file, as far as SQLite believes it, or cannot be read.
bool namesFile(const std::string& journal, std::uint64_t size) {
    std::array<char, sizeBehindName> end{};
    if (size <= end.size()) {
        return false;
    }
    if (!readBytes(journal, size - end.size(), end)) {
        return true;
    }
    const std::string_view bytes(end.data(), end.size());
    const std::uint64_t length = numberAt(bytes, 0);
    const auto longest = static_cast<std::uint64_t>(::sqlite3_vfs_find(nullptr)->mxPathname);
    if (bytes.substr(placeOfMagic) != magic || length == 0 || length > longest ||
        length > size - end.size()) {
        return false;
    }
    std::string name(length, '\0');
    return !readBytes(journal, size - end.size() - length, name) ||
           (name.front() != '\0' && hasSum(name, numberAt(bytes, placeOfSum)));
}

/// Whether a journal names no other file, and makes its database no larger than so many bytes.
bool isHarmless(const std::string& journal, std::uint64_t size, std::uint64_t mostBytes) {
    std::array<char, sizeOfHeader> header{};
    return !namesFile(journal, size) &&
           (size < header.size() ||
            (readBytes(journal, 0, header) &&
             sizeAfterPlayback({header.data(), header.size()}) <= mostBytes));
}

} // namespace

std::optional<std::int64_t> sizeOfDatabase(::sqlite3& connection) {
    const std::string database = ::sqlite3_db_filename(&connection, "main"); // without links
    const std::string journal = database + "-journal";
    const auto ownSize = sizeOfFile(database);
    const auto sizeOfJournal = sizeOfFile(journal);
    const auto sizeOfLog = sizeOfFile(database + "-wal");
    if (!ownSize || !sizeOfJournal || !sizeOfLog) {
        return std::nullopt;
    }
    const std::uint64_t size = *ownSize + *sizeOfJournal + *sizeOfLog;
    // SQLite would delete what lies beside an empty file.
    if ((*ownSize == 0 && size > 0) || !isHarmless(journal, *sizeOfJournal, size * largestGrowth)) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(std::min<std::uint64_t>(size, INT64_MAX));
}

} // namespace Rellinor
