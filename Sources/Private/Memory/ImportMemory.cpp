#include "Private/Memory/ImportMemory.hpp"

#include <algorithm>

namespace Rellinor {

std::span<char> ImportMemory::allocate(std::size_t size) {
    if (size > _free.size()) {
        if (size > _nextChunk / 4) {
            // A large piece has a chunk of its own: the rest of the shared one is not lost.
            return _chunks.emplace_back(size).bytes();
        }
        _free = _chunks.emplace_back(_nextChunk).bytes();
        _nextChunk = std::min(_nextChunk * 2, largestChunk);
    }
    const std::span<char> piece = _free.first(size);
    _free = _free.subspan(size);
    return piece;
}

std::string_view ImportMemory::copy(std::string_view text) {
    const std::span<char> piece = allocate(text.size());
    std::ranges::copy(text, piece.begin());
    return {piece.data(), piece.size()};
}

} // namespace Rellinor
