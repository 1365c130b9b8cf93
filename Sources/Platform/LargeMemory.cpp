#include "Platform/LargeMemory.hpp"

#include <new>

#include <sys/mman.h>

namespace Rellinor {

namespace {

constexpr std::align_val_t alignment{largePageSize};

} // namespace

void* allocateMemory(std::size_t size) {
    if (size < largePageSize) {
        return ::operator new(size);
    }
    void* const memory = ::operator new(size, alignment);
#if defined(MADV_HUGEPAGE)
    (void)::madvise(memory, size, MADV_HUGEPAGE); // advice: small pages do as well
#endif
    return memory;
}

void releaseMemory(void* memory, std::size_t size) noexcept {
    if (size < largePageSize) {
        ::operator delete(memory, size);
    } else {
        ::operator delete(memory, size, alignment);
    }
}

} // namespace Rellinor
