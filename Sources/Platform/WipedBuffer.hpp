#pragma once

#include <cstddef>
#include <span>
#include <utility>

namespace Rellinor {

/// A run of bytes on the heap that is overwritten before its memory is given back.
///
/// The bytes are uninitialised at first: fresh memory is touched once, by who fills it.
class WipedBuffer {
public:
    WipedBuffer() noexcept = default;

    /// @throws std::bad_alloc
    explicit WipedBuffer(std::size_t size);

    WipedBuffer(WipedBuffer&& other) noexcept
        : _bytes(std::exchange(other._bytes, nullptr)), _size(std::exchange(other._size, 0)) {}

    WipedBuffer& operator=(WipedBuffer&& other) noexcept {
        std::swap(_bytes, other._bytes);
        std::swap(_size, other._size);
        return *this;
    }

    WipedBuffer(const WipedBuffer&) = delete;
    WipedBuffer& operator=(const WipedBuffer&) = delete;

    ~WipedBuffer();

    [[nodiscard]] std::span<char> bytes() noexcept { return {_bytes, _size}; }

    [[nodiscard]] std::size_t size() const noexcept { return _size; }

private:
    char* _bytes = nullptr;
    std::size_t _size = 0;
};

} // namespace Rellinor
