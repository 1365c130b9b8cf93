#include "Private/Proxies/SQLiteJournal.hpp"

#include <sqlite3.h>

namespace Rellinor {

namespace {

constexpr std::size_t sizeBehindName = 16;

/// Whether a name has this sum. SQLite adds characters, whose sign depends on the machine; a file
/// may come from another.
bool hasSum(std::string_view name, std::uint32_t expected) noexcept {
    std::uint32_t withSign = 0;
    std::uint32_t without = 0;
    for (const char character : name) {
        withSign += static_cast<std::uint32_t>(static_cast<signed char>(character));
        without += static_cast<unsigned char>(character);
    }
    return withSign == expected || without == expected;
}

std::size_t longestPath() noexcept {
    return static_cast<std::size_t>(::sqlite3_vfs_find(nullptr)->mxPathname);
}

} // namespace

std::uint32_t numberAt(std::string_view bytes, std::size_t place) noexcept {
    if (place + 4 > bytes.size()) {
        return 0;
    }
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(place, 4)) {
        number = number << 8U | static_cast<unsigned char>(byte);
    }
    return number;
}

std::uint32_t pageSizeOf(std::string_view database) noexcept {
    constexpr std::size_t placeOfPageSize = 16;

    const std::uint32_t size = numberAt(database, placeOfPageSize) >> 16U;
    return size == 1 ? largestPageOfDatabase : size;
}

JournalPart JournalPart::at(std::string_view journal, std::size_t place) noexcept {
    return {.pages = numberAt(journal, place + 8),
            .seed = numberAt(journal, place + 12),
            .allPages = numberAt(journal, place + 16),
            .sectorSize = numberAt(journal, place + 20),
            .pageSize = numberAt(journal, place + 24)};
}

std::size_t longestEndOfJournal() noexcept {
    return longestPath() + sizeBehindName;
}

bool namesOtherFile(std::string_view end) noexcept {
    if (end.size() <= sizeBehindName || !end.ends_with(magicOfJournal)) {
        return false;
    }
    const std::size_t endOfName = end.size() - sizeBehindName;
    const std::uint32_t length = numberAt(end, endOfName);
    if (length == 0 || length > endOfName) {
        return false;
    }
    const std::string_view name = end.substr(endOfName - length, length);
    return name.front() != '\0' && hasSum(name, numberAt(end, endOfName + 4));
}

} // namespace Rellinor
