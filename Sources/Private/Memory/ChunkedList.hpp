#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Platform/LargeMemory.hpp"

namespace Rellinor {

/// A list that only grows and never moves an element, so that elements can be pointed at.
///
/// Its chunks double up to a large page: a short list takes little, and a long one wastes less than
/// one chunk and is never copied over. Elements are not destroyed one by one.
///
/// @tparam Buffer  the memory of a chunk; a `WipedBuffer` for a list that may hold secrets
template <typename Element, typename Buffer = LargeBuffer>
class ChunkedList {
public:
    /// @throws std::bad_alloc  the list is then as it was
    Element& append(const Element& element) {
        if (_next == _end) {
            addChunk(1);
        }
        return appendInRoom(element);
    }

    /// The same if the last chunk has room for the element.
    Element& appendInRoom(const Element& element) noexcept {
        return *std::construct_at(_next++, element);
    }

    /// Appends elements that stand behind each other, at the beginning of a new chunk if the last
    /// one has too little room.
    ///
    /// @throws std::bad_alloc  the list is then as it was
    std::span<const Element> append(std::span<const Element> elements) {
        Element* const first = begin(elements.size());
        _next = std::uninitialized_copy(elements.begin(), elements.end(), first);
        return {first, elements.size()};
    }

    /// Takes the last elements of the last chunk out. They stay readable as long as the list lives
    /// if a chunk is added before anything else.
    std::span<const Element> dropLast(std::size_t count) noexcept {
        _next -= count;
        return {_next, count};
    }

    /// So many elements behind each other, uninitialised, for the caller to fill.
    ///
    /// @throws std::bad_alloc  the list is then as it was
    [[nodiscard]] std::span<Element> extend(std::size_t count) {
        Element* const first = begin(count);
        _next += count;
        return {first, count};
    }

    /// How many more elements the last chunk takes.
    [[nodiscard]] std::size_t room() const noexcept {
        return static_cast<std::size_t>(_end - _next);
    }

    /// Where the next element will stand if there is room for it.
    [[nodiscard]] Element* next() const noexcept { return _next; }

    /// Leaves what room there is, and goes on in a new chunk.
    ///
    /// @throws std::bad_alloc  the list is then as it was
    void addChunk(std::size_t fewestElements) {
        const std::size_t capacity = std::max(capacityOfNextChunk(), fewestElements);
        _chunks.reserve(_chunks.size() + 1);
        Buffer memory(capacity * sizeof(Element));
        void* const bytes = memory.bytes().data();
        const std::size_t before = size();
        closeChunk();
        _next = static_cast<Element*>(bytes);
        _end = _next + capacity;
        _chunks.push_back({.memory = std::move(memory), .first = _next, .before = before});
    }

    /// How many elements a new chunk takes if fewer are asked for.
    [[nodiscard]] std::size_t capacityOfNextChunk() const noexcept {
        constexpr std::size_t smallest = std::size_t{4} * 1024;

        const std::size_t size =
            _chunks.empty() ? smallest : std::min(_chunks.back().memory.size() * 2, largePageSize);
        return (size + sizeof(Element) - 1) / sizeof(Element);
    }

    [[nodiscard]] std::size_t numberOfChunks() const noexcept { return _chunks.size(); }

    /// The elements of a chunk, in their order.
    [[nodiscard]] std::span<const Element> chunk(std::size_t index) const noexcept {
        const Chunk& chunk = _chunks[index];
        return {chunk.first, index + 1 == _chunks.size() ? _next : chunk.last};
    }

    [[nodiscard]] std::size_t size() const noexcept {
        return _chunks.empty() ? 0 : _chunks.back().before + chunk(_chunks.size() - 1).size();
    }

    /// The element of an index that is below the size. Takes the logarithm of the size.
    [[nodiscard]] const Element& operator[](std::size_t index) const noexcept {
        const auto behind = std::ranges::upper_bound(_chunks, index, {}, &Chunk::before);
        const Chunk& chunk = *std::prev(behind);
        return chunk.first[index - chunk.before];
    }

    void forEach(auto&& visit) const {
        for (std::size_t index = 0; index < _chunks.size(); ++index) {
            std::ranges::for_each(chunk(index), visit);
        }
    }

private:
    struct Chunk {
        Buffer memory;
        Element* first = nullptr;
        Element* last = nullptr; // behind the last element, once there is another chunk
        std::size_t before = 0;  // how many elements the chunks before it have
    };

    Element* begin(std::size_t count) {
        if (count > room()) {
            addChunk(count);
        }
        return _next;
    }

    void closeChunk() noexcept {
        if (!_chunks.empty()) {
            _chunks.back().last = _next;
        }
    }

    std::vector<Chunk> _chunks; // moving a buffer leaves its bytes in place
    Element* _next = nullptr;
    Element* _end = nullptr;
};

} // namespace Rellinor
