#include "Tests/Memory/OwnMemory.hpp"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>

#include <sys/mman.h>

// The whole program allocates through these.

namespace {

constexpr std::size_t reserved = std::size_t{4} << 30U;

// NOLINTBEGIN(*-avoid-non-const-global-variables)
std::atomic<std::size_t> allocations = 0;
std::atomic<std::size_t> failingAllocation = 0;
std::atomic<std::size_t> givenOut = 0;

// NOLINTEND(*-avoid-non-const-global-variables)

constexpr std::size_t guard = std::size_t{1} << 20U; // on both sides, so that no neighbour joins it

std::byte* region() {
    static std::byte* const begin = [] {
        void* const memory = ::mmap(nullptr, reserved + 2 * guard, PROT_NONE,
                                    MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        auto* const inner = static_cast<std::byte*>(memory) + guard;
        if (memory == MAP_FAILED || ::mprotect(inner, reserved, PROT_READ | PROT_WRITE) != 0) {
            std::abort();
        }
        return inner;
    }();
    return begin;
}

void* allocate(std::size_t size, std::size_t alignment) {
    if (++allocations == failingAllocation) {
        throw std::bad_alloc();
    }
    size += alignment;
    const std::size_t offset = givenOut.fetch_add(size);
    if (size > reserved || offset > reserved - size) {
        throw std::bad_alloc();
    }
    void* memory = region() + offset;
    return std::align(alignment, size - alignment, memory, size); // there is room for that
}

} // namespace

// NOLINTBEGIN(*-owning-memory,misc-new-delete-overloads)
void* operator new(std::size_t size) {
    return allocate(size, __STDCPP_DEFAULT_NEW_ALIGNMENT__);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return allocate(size, static_cast<std::size_t>(alignment));
}

void operator delete(void* /*memory*/) noexcept {}

void operator delete(void* /*memory*/, std::size_t /*size*/) noexcept {}

void operator delete(void* /*memory*/, std::align_val_t /*alignment*/) noexcept {}

void operator delete(void* /*memory*/, std::size_t /*size*/,
                     std::align_val_t /*alignment*/) noexcept {}

// NOLINTEND(*-owning-memory,misc-new-delete-overloads)

namespace Rellinor::Tests {

std::span<const std::byte> ownMemory() {
    return {region(), std::min(givenOut.load(), reserved)};
}

std::span<const std::byte> placeOfOwnMemory() {
    return {region(), reserved};
}

void failAllocationFromNow(std::size_t nth) {
    failingAllocation = nth == 0 ? 0 : allocations + nth;
}

std::size_t allocationsSoFar() {
    return allocations;
}

} // namespace Rellinor::Tests
