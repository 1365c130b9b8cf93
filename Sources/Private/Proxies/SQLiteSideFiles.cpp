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
// that name, a checksum of it, and the magic.
constexpr std::string_view magic = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
constexpr std::size_t sizeBehindName = 16;
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

/// Whether a journal names no other file, and makes its database no larger than so many bytes.
bool isHarmless(const std::string& journal, std::uint64_t size, std::uint64_t mostBytes) noexcept {
    std::array<char, sizeOfHeader> header{};
    std::array<char, magic.size()> end{};
    if (size > sizeBehindName && (!readBytes(journal, size - end.size(), end) ||
                                  std::string_view(end.data(), end.size()) == magic)) {
        return false;
    }
    return size < header.size() || (readBytes(journal, 0, header) &&
                                    sizeAfterPlayback({header.data(), header.size()}) <= mostBytes);
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
