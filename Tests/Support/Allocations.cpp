#include "Tests/Support/Allocations.hpp"

#include <algorithm>
#include <new>
#include <span>

#include <stdlib.h> // NOLINT(modernize-deprecated-headers): posix_memalign is POSIX

// The whole test program allocates through these, so that tests can watch the heap.

namespace {

// NOLINTBEGIN(*-avoid-non-const-global-variables)
std::size_t allocations = 0;
std::size_t deallocations = 0;
std::size_t failingAllocation = 0; // 0: none fails
bool failsFromThenOn = false;
std::size_t watchedSize = 0; // 0: nothing is watched
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

void countAllocation() {
    ++allocations;
    if (failingAllocation != 0 && (allocations == failingAllocation ||
                                   (failsFromThenOn && allocations > failingAllocation))) {
        ++deallocations; // it is not in use
        throw std::bad_alloc();
    }
}

void* checked(void* memory) {
    if (memory == nullptr) {
        ++deallocations;
        throw std::bad_alloc();
    }
    return memory;
}

void failAllocations(std::size_t nth, bool fromThenOn, const std::function<void()>& work) {
    failsFromThenOn = fromThenOn;
    failingAllocation = allocations + nth;
    work();
    failingAllocation = 0;
}

} // namespace

// NOLINTBEGIN(*-no-malloc,*-owning-memory,misc-new-delete-overloads)
void* operator new(std::size_t size) {
    countAllocation();
    return checked(std::malloc(std::max<std::size_t>(size, 1)));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    countAllocation();
    void* memory = nullptr;
    const int failure = ::posix_memalign(&memory, static_cast<std::size_t>(alignment), size);
    return checked(failure == 0 ? memory : nullptr);
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

void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    operator delete(memory);
}

void operator delete(void* memory, std::size_t size, std::align_val_t /*alignment*/) noexcept {
    operator delete(memory, size);
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
    failAllocations(nth, false, work);
}

void failAllocationsFrom(std::size_t nth, const std::function<void()>& work) {
    failAllocations(nth, true, work);
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
