#include "Private/Proxies/SQLiteMemory.hpp"

#include <algorithm>
#include <array>

#include <sqlite3.h>

namespace Rellinor {

bool hasMemory(std::int64_t size) noexcept {
    // SQLite asks for much memory in pieces too, and a host may forbid large ones.
    constexpr std::int64_t largestPiece = 1 << 26;
    constexpr std::size_t mostPieces = 16;

    std::array<void*, mostPieces> pieces{};
    bool hasAll = true;
    for (void*& piece : pieces) {
        const auto part =
            static_cast<std::uint64_t>(std::clamp<std::int64_t>(size, 0, largestPiece));
        piece = part > 0 ? ::sqlite3_malloc64(part) : nullptr;
        hasAll = hasAll && (piece != nullptr || part == 0);
        size -= static_cast<std::int64_t>(part);
    }
    std::ranges::for_each(pieces, &::sqlite3_free);
    return hasAll;
}

} // namespace Rellinor
