#include "Tests/Support/Allocations.hpp"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <span>

// The whole test program allocates through these, so that tests can watch the heap.

namespace {

// NOLINTBEGIN(*-avoid-non-const-global-variables)
std::size_t allocations = 0;
std::size_t deallocations = 0;
std::size_t failingAllocation = 0; // 0: none fails
std::size_t watchedSize = 0;       // 0: nothing is watched
std::size_t piecesOfZeros = 0;
std::size_t piecesOfOthers = 0;

// NOLINTEND(*-avoid-non-const-global-variables)

void watch(const void* memory, std::size_t size) noexcept {
    if (watchedSize == 0 || size != watchedSize) {
        return;
    }
    const std::span bytes(static_cast<const unsigned char*>(memory), size);
    const bool zeros = std::ranges::all_of(bytes, [](unsigned char byte) { return byte == 0; });
    ++(zeros ? piecesOfZeros : piecesOfOthers);
}

} // namespace

// NOLINTBEGIN(*-no-malloc,*-owning-memory,misc-new-delete-overloads)
void* operator new(std::size_t size) {
    ++allocations;
    if (allocations == failingAllocation) {
        ++deallocations; // it is not in use
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(std::max<std::size_t>(size, 1))) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    deallocations += memory != nullptr ? 1 : 0;
    std::free(memory);
}

void operator delete(void* memory, std::size_t size) noexcept {
    deallocations += memory != nullptr ? 1 : 0;
    watch(memory, size);
    std::free(memory);
}

// NOLINTEND(*-no-malloc,*-owning-memory,misc-new-delete-overloads)

namespace Rellinor::Tests {

std::size_t allocationsOf(const std::function<void()>& work) {
    const std::size_t before = allocations;
    work();
    return allocations - before;
}

std::size_t piecesInUse() {
    return allocations - deallocations;
}

void failAllocation(std::size_t nth, const std::function<void()>& work) {
    failingAllocation = allocations + nth;
    work();
    failingAllocation = 0;
}

bool givesBackZeros(std::size_t size, const std::function<void()>& work) {
    piecesOfZeros = 0;
    piecesOfOthers = 0;
    watchedSize = size;
    work();
    watchedSize = 0;
    return piecesOfZeros > 0 && piecesOfOthers == 0;
}

} // namespace Rellinor::Tests
