#include "Platform/WipedHeap.hpp"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

#include <sodium/utils.h>

namespace Rellinor {

namespace {

/// Stands in front of each piece and keeps the alignment of what follows.
struct alignas(std::max_align_t) Header {
    std::size_t size = 0; // of the piece
};

Header* headerOf(void* memory) noexcept {
    return static_cast<Header*>(memory) - 1; // NOLINT(*-pointer-arithmetic)
}

} // namespace

void* allocateWiped(std::size_t size) noexcept {
    // No object is larger than a difference of pointers can tell.
    if (size > std::numeric_limits<std::ptrdiff_t>::max() - sizeof(Header)) {
        return nullptr;
    }
    void* const memory = ::operator new(sizeof(Header) + size, std::nothrow);
    if (memory == nullptr) {
        return nullptr;
    }
    return std::construct_at(static_cast<Header*>(memory), Header{.size = size}) + 1;
}

void* reallocateWiped(void* memory, std::size_t size) noexcept {
    void* const other = allocateWiped(size);
    if (other != nullptr && memory != nullptr) {
        std::memcpy(other, memory, std::min(size, headerOf(memory)->size));
        freeWiped(memory);
    }
    return other;
}

void freeWiped(void* memory) noexcept {
    if (memory != nullptr) {
        Header* const header = headerOf(memory);
        ::sodium_memzero(memory, header->size);
        ::operator delete(header, std::nothrow);
    }
}

} // namespace Rellinor
