#pragma once

#include <cstddef>
#include <span>
#include <utility>

namespace Rellinor {

/// A piece of memory of at least this size comes in large pages where the system has them: a fresh
/// page is dear to touch, however large the page is.
inline constexpr std::size_t largePageSize = std::size_t{2} * 1024 * 1024;

/// A piece of memory of at least this size has its pages for itself, and they are left out of
/// memory dumps where the system can do that. For smaller pieces that would cost more than it
/// helps.
inline constexpr std::size_t ownPagesSize = std::size_t{64} * 1024;

/// Asks for large pages for memory that is not touched yet, as far as whole ones fit into it.
void askForLargePages(std::span<std::byte> memory) noexcept;

/// A run of bytes on the heap.
///
/// The bytes are uninitialised at first: fresh memory is touched once, when it is filled.
class LargeBuffer {
public:
    LargeBuffer() noexcept = default;

    /// @throws std::bad_alloc
    explicit LargeBuffer(std::size_t size);

    LargeBuffer(LargeBuffer&& other) noexcept
        : _bytes(std::exchange(other._bytes, nullptr)), _size(std::exchange(other._size, 0)) {}

    LargeBuffer& operator=(LargeBuffer&& other) noexcept {
        std::swap(_bytes, other._bytes);
        std::swap(_size, other._size);
        return *this;
    }

    LargeBuffer(const LargeBuffer&) = delete;
    LargeBuffer& operator=(const LargeBuffer&) = delete;

    ~LargeBuffer();

    [[nodiscard]] std::span<char> bytes() noexcept { return {_bytes, _size}; }

    [[nodiscard]] std::size_t size() const noexcept { return _size; }

private:
    char* _bytes = nullptr;
    std::size_t _size = 0;
};

} // namespace Rellinor
