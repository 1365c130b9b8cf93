#include "Private/Proxies/SQLiteSideFiles.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include <sqlite3.h>

#include "Platform/File.hpp"
#include "Private/Proxies/SQLiteJournal.hpp"

namespace Rellinor {

namespace {

/// How large a journal makes its database.
///
/// @param header  what the journal begins with
std::uint64_t sizeAfterPlayback(std::string_view header) noexcept {
    if (!header.starts_with(magicOfJournal)) {
        return 0; // it is none
    }
    const JournalPart first = JournalPart::at(header, 0);
    const std::uint32_t pageSize = first.pageSize == 0 ? largestPageOfDatabase : first.pageSize;
    return std::uint64_t{first.allPages} * pageSize;
}

/// Whether a journal names another file, or cannot be read.
bool namesFile(const std::string& journal, std::uint64_t size) {
    std::string end(std::min<std::uint64_t>(size, longestEndOfJournal()), '\0');
    return size > 0 && (!readBytes(journal, size - end.size(), end) || namesOtherFile(end));
}

/// Whether a journal names no other file, and makes its database no larger than so many bytes.
bool isHarmless(const std::string& journal, std::uint64_t size, std::uint64_t mostBytes) {
    std::array<char, JournalPart::sizeOfHeader> header{};
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
    if ((*ownSize == 0 && size > 0) ||
        !isHarmless(journal, *sizeOfJournal, size * largestGrowthOfDatabase)) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(std::min<std::uint64_t>(size, INT64_MAX));
}

} // namespace Rellinor
