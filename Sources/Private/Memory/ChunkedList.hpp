#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "Platform/LargeMemory.hpp"

namespace Rellinor {

/// A list that only grows and never moves what it holds, so that elements can be pointed at.
///
/// Chunks double up to a fixed size: a long list wastes little and is never copied over.
template <typename Element>
class ChunkedList {
public:
    /// @throws std::bad_alloc  the list is then as it was
    void append(const Element& element) {
        if (_chunks.empty() || _chunks.back().size() == _chunks.back().capacity()) {
            addChunk();
        }
        _chunks.back().push_back(element);
        ++_size;
    }

    [[nodiscard]] std::size_t size() const noexcept { return _size; }

    void forEach(auto&& visit) const {
        for (const auto& chunk : _chunks) {
            std::ranges::for_each(chunk, visit);
        }
    }

private:
    using Chunk = std::vector<Element, LargeMemoryAllocator<Element>>;

    static constexpr std::size_t smallestChunk = 16;
    static constexpr std::size_t largestChunk = largePageSize / sizeof(Element) + 1;

    void addChunk() {
        const std::size_t capacity =
            _chunks.empty() ? smallestChunk : std::min(_chunks.back().size() * 2, largestChunk);
        Chunk chunk;
        chunk.reserve(capacity);
        _chunks.push_back(std::move(chunk));
    }

    std::vector<Chunk> _chunks;
    std::size_t _size = 0;
};

} // namespace Rellinor
