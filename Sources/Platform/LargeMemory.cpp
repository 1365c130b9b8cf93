#include "Platform/LargeMemory.hpp"

#include <new>

#include <sys/mman.h>

namespace Rellinor {

namespace {

constexpr std::align_val_t alignment{largePageSize};

void* allocate(std::size_t size) {
    if (size < largePageSize) {
        return ::operator new(size);
    }
    void* const memory = ::operator new(size, alignment);
#if defined(MADV_HUGEPAGE)
    (void)::madvise(memory, size, MADV_HUGEPAGE); // advice: small pages do as well
#endif
    return memory;
}

} // namespace

LargeBuffer::LargeBuffer(std::size_t size)
    : _bytes(static_cast<char*>(allocate(size))), _size(size) {}

LargeBuffer::~LargeBuffer() {
    if (_size < largePageSize) {
        ::operator delete(_bytes, _size);
    } else {
        ::operator delete(_bytes, _size, alignment);
    }
}

} // namespace Rellinor
