#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/File.hpp"
#include "Platform/LargeMemory.hpp"
#include "Platform/WipedBuffer.hpp"

namespace Rellinor {

/// Owns the texts that the raw records and the built records of one import point into.
///
/// What it takes over or gives out stays where it is until the memory is let go, and is wiped then.
class ImportMemory {
public:
    ImportMemory() = default;
    ImportMemory(const ImportMemory&) = delete;
    ImportMemory& operator=(const ImportMemory&) = delete;
    ~ImportMemory() = default;

    /// Takes over the contents of a file; returns its bytes, which the caller may rewrite.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::span<char> adopt(FileContents contents) {
        return _files.emplace_back(std::move(contents)).bytes();
    }

    /// So many bytes, uninitialised, for the caller to fill. Small pieces share larger chunks, so
    /// that most of them cost no allocation.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::span<char> allocate(std::size_t size);

    /// A copy of a text.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::string_view copy(std::string_view text);

private:
    std::vector<FileContents> _files; // moving one leaves its bytes in place
    std::vector<WipedBuffer> _chunks; // and so here
    std::span<char> _free;            // what is left of the newest shared chunk
    std::size_t _nextChunk = smallestChunk;

    static constexpr std::size_t smallestChunk = std::size_t{4} * 1024;
    static constexpr std::size_t largestChunk = largePageSize;
};

} // namespace Rellinor
