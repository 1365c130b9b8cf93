#pragma once

#include <cstddef>
#include <span>
#include <utility>

#include "Platform/LargeMemory.hpp"

namespace Rellinor {

/// A `LargeBuffer` that is overwritten before its memory is given back.
class WipedBuffer {
public:
    WipedBuffer() noexcept = default;

    /// @throws std::bad_alloc
    explicit WipedBuffer(std::size_t size) : _memory(size) {}

    WipedBuffer(WipedBuffer&&) noexcept = default;
    WipedBuffer& operator=(WipedBuffer&&) noexcept = default;
    WipedBuffer(const WipedBuffer&) = delete;
    WipedBuffer& operator=(const WipedBuffer&) = delete;

    ~WipedBuffer();

    [[nodiscard]] std::span<char> bytes() noexcept { return _memory.bytes(); }

    [[nodiscard]] std::size_t size() const noexcept { return _memory.size(); }

private:
    LargeBuffer _memory; // assigning swaps two, so that each is overwritten at its own end
};

} // namespace Rellinor
