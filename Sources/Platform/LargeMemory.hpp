#pragma once

#include <cstddef>

namespace Rellinor {

/// Pieces of at least this size are given out in large pages where the system has them: a fresh
/// page is dear to touch, however large it is.
inline constexpr std::size_t largePageSize = std::size_t{2} * 1024 * 1024;

/// Memory for `size` bytes, uninitialised.
///
/// @throws std::bad_alloc
[[nodiscard]] void* allocateMemory(std::size_t size);

/// Gives back what `allocateMemory` gave out for that size.
void releaseMemory(void* memory, std::size_t size) noexcept;

/// Makes a container of the standard library take its memory so.
template <typename Element>
class LargeMemoryAllocator {
public:
    using value_type = Element;

    LargeMemoryAllocator() noexcept = default;

    template <typename Other>
    explicit(false) LargeMemoryAllocator(const LargeMemoryAllocator<Other>& /*other*/) noexcept {}

    [[nodiscard]] Element* allocate(std::size_t count) {
        return static_cast<Element*>(allocateMemory(count * sizeof(Element)));
    }

    void deallocate(Element* elements, std::size_t count) noexcept {
        releaseMemory(elements, count * sizeof(Element));
    }

    bool operator==(const LargeMemoryAllocator&) const noexcept = default;
};

} // namespace Rellinor
