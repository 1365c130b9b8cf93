#include "Tests/Memory/MemorySearch.hpp"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>

#include <sodium/utils.h>

#include "Tests/Memory/OwnMemory.hpp"
#include "Tests/Memory/SQLiteArena.hpp"

namespace Rellinor::Tests {

namespace {

constexpr unsigned bitsOfMark = 19;

std::size_t markOf(Piece piece) noexcept {
    return piece * 0x9E3779B97F4A7C15U >> (64 - bitsOfMark);
}

Piece maskedPieceAt(std::span<const std::byte> memory) {
    Piece piece = 0;
    std::memcpy(&piece, memory.data(), sizeof piece);
    return piece ^ maskOfPieces;
}

/// A run of memory that this process can read, and that may have been written to.
struct Mapping {
    std::span<const std::byte> memory;
    std::string name;
};

std::vector<Mapping> readableMappings() {
    std::vector<Mapping> mappings;
    std::ifstream file("/proc/self/maps");
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        char dash = ' ';
        std::string rights;
        std::string offset;
        std::string device;
        std::string inode;
        std::string name;
        words >> std::hex >> begin >> dash >> end >> rights >> offset >> device >> inode >> name;
        const bool isKernels = name.starts_with("[v"); // which may not be read to its end
        const bool isOfFile = name.starts_with('/') && !rights.starts_with("rw");
        if (rights.starts_with('r') && !isKernels && !isOfFile) {
            mappings.push_back(
                {.memory = {reinterpret_cast<const std::byte*>(begin), end - begin}, // NOLINT
                 .name = name});
        }
    }
    if (mappings.empty()) {
        throw std::runtime_error("this system does not tell what memory a process has");
    }
    return mappings;
}

bool isWithin(std::span<const std::byte> inner, std::span<const std::byte> outer) noexcept {
    return std::less_equal{}(outer.data(), inner.data()) &&
           std::less_equal{}(inner.data() + inner.size(), outer.data() + outer.size());
}

void write(std::ostream& out, std::string_view where, const std::set<std::uint32_t>& numbers) {
    out << where << ' ' << numbers.size() << ':';
    std::size_t shown = 0;
    for (const std::uint32_t number : numbers) {
        out << (++shown > 20 ? "" : ' ' + std::to_string(number));
    }
    out << "; ";
}

} // namespace

std::set<std::uint32_t> Found::anywhere() const {
    std::set<std::uint32_t> numbers = inOwnMemory;
    numbers.insert(onAStack.begin(), onAStack.end());
    numbers.insert(inSQLite.begin(), inSQLite.end());
    numbers.insert(elsewhere.begin(), elsewhere.end());
    return numbers;
}

std::ostream& operator<<(std::ostream& out, const Found& found) {
    write(out, "own memory", found.inOwnMemory);
    write(out, "stack", found.onAStack);
    write(out, "SQLite", found.inSQLite);
    write(out, "elsewhere", found.elsewhere);
    return out;
}

MemorySearch::MemorySearch(std::span<const Canary> canaries)
    : _marks(std::size_t{1} << bitsOfMark), _ownMemoryBefore(ownMemory().size()) {
    for (const Canary& canary : canaries) {
        add(maskedPiecesOf(canary), canary.number());
        add(maskedPiecesOfUTF16(canary), canary.number(), true);
        add(maskedPiecesOfDecoded(canary), canary.number() + Found::decoded);
    }
    std::ranges::sort(_entries, {}, &Entry::piece);
}

void MemorySearch::add(std::span<const Piece> pieces, std::uint32_t number, bool areHalves) {
    for (const Piece piece : pieces) {
        _entries.push_back({.piece = piece, .number = number, .isHalf = areHalves});
        _marks[markOf(piece)] = true;
    }
}

Found MemorySearch::search(std::span<const std::byte> stack) const {
    Found found;
    searchIn(ownMemory().subspan(_ownMemoryBefore), found.inOwnMemory);
    searchIn(sqliteArena(), found.inSQLite);
    for (const Mapping& mapping : readableMappings()) {
        if (isWithin(mapping.memory, placeOfOwnMemory()) ||
            isWithin(mapping.memory, placeOfSQLiteArena())) {
            continue;
        }
        if (mapping.name == "[stack]" || isWithin(stack, mapping.memory)) {
            searchIn(mapping.memory, found.onAStack);
        } else {
            searchIn(mapping.memory, found.elsewhere);
        }
    }
    ::sodium_stackzero(std::size_t{16} << 10U); // what was compared is not to be found next time
    return found;
}

std::span<const MemorySearch::Entry> MemorySearch::find(Piece masked) const {
    if (!_marks[markOf(masked)]) {
        return {};
    }
    return std::ranges::equal_range(_entries, masked, {}, &Entry::piece);
}

bool MemorySearch::isFollowed(const Entry& half, std::span<const std::byte> next) const {
    return next.size() >= sizeOfPiece &&
           std::ranges::any_of(find(maskedPieceAt(next)), [&](const Entry& entry) {
               return entry.isHalf && entry.number == half.number;
           });
}

void MemorySearch::searchIn(std::span<const std::byte> memory,
                            std::set<std::uint32_t>& numbers) const {
    for (; memory.size() >= sizeOfPiece; memory = memory.subspan(1)) {
        for (const Entry& entry : find(maskedPieceAt(memory))) {
            if (!entry.isHalf || isFollowed(entry, memory.subspan(sizeOfPiece))) {
                numbers.insert(entry.number);
            }
        }
    }
}

} // namespace Rellinor::Tests
