#include "Tests/Memory/SQLiteArena.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>

#include <sqlite3.h>
#include <sys/mman.h>

namespace Rellinor::Tests {

namespace {

constexpr std::size_t reserved = std::size_t{1} << 30U;
constexpr std::size_t guard = std::size_t{1} << 20U; // on both sides, so that no neighbour joins it

/// What stands before each piece.
struct Head {
    std::size_t size; // of the piece, a power of two
    std::byte* nextFree;
};

// NOLINTBEGIN(*-avoid-non-const-global-variables)
std::byte* region = nullptr;
std::size_t givenOut = 0;
std::array<std::byte*, 64> freePieces{}; // by the logarithm of their size, the last one first

// NOLINTEND(*-avoid-non-const-global-variables)

Head& headOf(void* piece) {
    return *(static_cast<Head*>(piece) - 1);
}

std::byte*& freePiecesOf(std::size_t size) {
    return freePieces.at(static_cast<std::size_t>(std::countr_zero(size)));
}

int roundedUp(int size) {
    return static_cast<int>(std::bit_ceil(std::max(static_cast<unsigned>(size), 16U)));
}

int sizeOf(void* piece) {
    return piece == nullptr ? 0 : static_cast<int>(headOf(piece).size);
}

void* allocate(int size) {
    const auto rounded = static_cast<std::size_t>(roundedUp(size));
    std::byte*& firstFree = freePiecesOf(rounded);
    if (firstFree != nullptr) {
        std::byte* const piece = firstFree;
        firstFree = headOf(piece).nextFree;
        return piece;
    }
    if (reserved - givenOut < sizeof(Head) + rounded) {
        return nullptr;
    }
    std::byte* const piece = region + givenOut + sizeof(Head);
    givenOut += sizeof(Head) + rounded;
    headOf(piece).size = rounded;
    return piece;
}

void giveBack(void* piece) {
    if (piece != nullptr) {
        std::byte*& firstFree = freePiecesOf(headOf(piece).size);
        headOf(piece).nextFree = firstFree;
        firstFree = static_cast<std::byte*>(piece);
    }
}

void* resize(void* piece, int size) {
    void* const other = allocate(size);
    if (other != nullptr) {
        std::memcpy(other, piece, static_cast<std::size_t>(std::min(sizeOf(piece), size)));
        giveBack(piece);
    }
    return other;
}

int begin(void* /*data*/) {
    return SQLITE_OK;
}

void end(void* /*data*/) {}

bool install() {
    void* const memory = ::mmap(nullptr, reserved + 2 * guard, PROT_NONE,
                                MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    region = static_cast<std::byte*>(memory) + guard;
    const ::sqlite3_mem_methods methods = {.xMalloc = &allocate,
                                           .xFree = &giveBack,
                                           .xRealloc = &resize,
                                           .xSize = &sizeOf,
                                           .xRoundup = &roundedUp,
                                           .xInit = &begin,
                                           .xShutdown = &end,
                                           .pAppData = nullptr};
    return memory != MAP_FAILED && ::mprotect(region, reserved, PROT_READ | PROT_WRITE) == 0 &&
           ::sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) == SQLITE_OK; // NOLINT(*-vararg)
}

/// Only to be done before SQLite is used for the first time.
const bool isInstalled = install();

} // namespace

std::span<const std::byte> sqliteArena() {
    if (!isInstalled) {
        std::abort();
    }
    return {region, givenOut};
}

std::span<const std::byte> placeOfSQLiteArena() {
    return {region, reserved};
}

} // namespace Rellinor::Tests
