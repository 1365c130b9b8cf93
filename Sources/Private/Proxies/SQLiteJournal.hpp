#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Rellinor {

// The format of the files beside a database is that of https://www.sqlite.org/fileformat2.html.

/// By how much an honest file may make the database larger than both are. Pages that were free
/// before a change need not be in a journal.
inline constexpr std::uint64_t largestGrowthOfDatabase = 16;

inline constexpr std::uint32_t largestPageOfDatabase = 65536;

/// What a header of a journal begins with, and what follows the name of another file.
inline constexpr std::string_view magicOfJournal = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";

/// Four bytes, the high one first; 0 if they are not all there.
[[nodiscard]] std::uint32_t numberAt(std::string_view bytes, std::size_t place) noexcept;

/// How large the header of a database says that its pages are; 0 if the header is cut short.
[[nodiscard]] std::uint32_t pageSizeOf(std::string_view database) noexcept;

/// A part of a journal: a header that takes a sector, and pages as they were.
struct JournalPart {
    static constexpr std::size_t sizeOfHeader = 28;

    std::uint32_t pages;    ///< that follow
    std::uint32_t seed;     ///< of the checksums
    std::uint32_t allPages; ///< that the database had
    std::uint32_t sectorSize;
    std::uint32_t pageSize;

    /// The part whose header stands at a place.
    [[nodiscard]] static JournalPart at(std::string_view journal, std::size_t place) noexcept;
};

/// What a journal that belongs to several databases may end with, at most: the path of a file that
/// lists these databases, the length of the path, the sum of its bytes, and the magic.
[[nodiscard]] std::size_t longestEndOfJournal() noexcept;

/// Whether a journal names another file, as far as SQLite believes it.
///
/// @param end  the end of the journal: `longestEndOfJournal()` bytes, or all if it is shorter
[[nodiscard]] bool namesOtherFile(std::string_view end) noexcept;

} // namespace Rellinor
