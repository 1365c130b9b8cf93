#include "Platform/LargeMemory.hpp"

#include <memory>
#include <new>

#include <sys/mman.h>

namespace Rellinor {

namespace {

/// The largest pages that a system has for all of its memory.
#if defined(__x86_64__)
constexpr std::size_t pageSize = 4096;
#else
constexpr std::size_t pageSize = std::size_t{64} * 1024;
#endif

constexpr std::align_val_t alignmentOf(std::size_t size) noexcept {
    return std::align_val_t{size < largePageSize ? pageSize : largePageSize};
}

/// A size up to the end of its last page.
constexpr std::size_t inPages(std::size_t size) noexcept {
    return (size + pageSize - 1) / pageSize * pageSize;
}

/// Leaves whole pages out of memory dumps, or lets them in again. That is advice, as all advice
/// here: if the system does not take it, nothing else changes.
void leaveOutOfDumps([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size,
                     [[maybe_unused]] bool isLeftOut) noexcept {
#if defined(MADV_DONTDUMP)
    (void)::madvise(memory, size, isLeftOut ? MADV_DONTDUMP : MADV_DODUMP);
#elif defined(MADV_NOCORE)
    (void)::madvise(memory, size, isLeftOut ? MADV_NOCORE : MADV_CORE);
#endif
}

void* allocate(std::size_t size) {
    if (size < ownPagesSize) {
        return ::operator new(size);
    }
    if (size > static_cast<std::size_t>(-1) - pageSize) {
        throw std::bad_alloc();
    }
    void* const memory = ::operator new(inPages(size), alignmentOf(size));
    askForLargePages({static_cast<std::byte*>(memory), size});
    leaveOutOfDumps(memory, inPages(size), true);
    return memory;
}

} // namespace

void askForLargePages([[maybe_unused]] std::span<std::byte> memory) noexcept {
#if defined(MADV_HUGEPAGE)
    void* first = memory.data();
    std::size_t size = memory.size();
    if (std::align(pageSize, largePageSize, first, size) != nullptr) {
        (void)::madvise(first, size, MADV_HUGEPAGE);
    }
#endif
}

LargeBuffer::LargeBuffer(std::size_t size)
    : _bytes(static_cast<char*>(allocate(size))), _size(size) {}

LargeBuffer::~LargeBuffer() {
    if (_size < ownPagesSize) {
        ::operator delete(_bytes, _size);
    } else {
        leaveOutOfDumps(_bytes, inPages(_size), false); // others will get these pages
        ::operator delete(_bytes, inPages(_size), alignmentOf(_size));
    }
}

} // namespace Rellinor
