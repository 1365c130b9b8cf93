#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <set>
#include <span>
#include <vector>

#include "Tests/Memory/Canary.hpp"

namespace Rellinor::Tests {

/// What a search found: which canaries, by number, and where. The bytes that one is the Base64 text
/// of count as another.
struct Found {
    static constexpr std::uint32_t decoded = 1000000; ///< what their numbers are greater by

    std::set<std::uint32_t> inOwnMemory; ///< what operator new gave out
    std::set<std::uint32_t> onAStack;
    std::set<std::uint32_t> inSQLite;  ///< in what it was given, or gave back
    std::set<std::uint32_t> elsewhere; ///< the heap of C libraries, their data, and all the rest

    [[nodiscard]] std::set<std::uint32_t> anywhere() const;

    bool operator==(const Found&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Found& found);

/// Looks for canaries in all memory of this process that can be read, in use or not. Parts of files
/// that cannot be written to have none.
class MemorySearch {
public:
    explicit MemorySearch(std::span<const Canary> canaries);

    /// @param stack  of another thread, which stands still
    [[nodiscard]] Found search(std::span<const std::byte> stack) const;

private:
    struct Entry {
        Piece piece;
        std::uint32_t number;
        bool isHalf; ///< it is there only if another of that number follows
    };

    void add(std::span<const Piece> pieces, std::uint32_t number, bool areHalves = false);

    /// All that are this piece; most pieces are none.
    [[nodiscard]] std::span<const Entry> find(Piece masked) const;

    [[nodiscard]] bool isFollowed(const Entry& half, std::span<const std::byte> next) const;

    void searchIn(std::span<const std::byte> memory, std::set<std::uint32_t>& numbers) const;

    std::vector<Entry> _entries;  // in the order of their pieces
    std::vector<bool> _marks;     // of pieces that may be there
    std::size_t _ownMemoryBefore; // where nothing can be yet
};

} // namespace Rellinor::Tests
