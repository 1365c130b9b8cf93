#include "Private/Memory/ImportMemory.hpp"

#include <algorithm>

namespace Rellinor {

std::span<char> ImportMemory::allocate(std::size_t size) {
    if (size > _smallPieces.room() && size > _smallPieces.capacityOfNextChunk() / 4) {
        // A large piece stands alone: the rest of the shared chunk is not lost.
        return _largePieces.emplace_back(size).bytes();
    }
    return _smallPieces.extend(size);
}

std::string_view ImportMemory::copy(std::string_view text) {
    const std::span<char> piece = allocate(text.size());
    std::ranges::copy(text, piece.begin());
    return {piece.data(), piece.size()};
}

} // namespace Rellinor
