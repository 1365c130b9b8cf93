#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/File.hpp"
#include "Platform/WipedBuffer.hpp"
#include "Private/Memory/ChunkedList.hpp"

namespace Rellinor {

/// Owns the texts that the raw records and the built records of one import point into.
///
/// A text stays where it is until the memory is let go, and is wiped then.
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

    /// So many bytes, uninitialised, for the caller to fill. Small pieces share chunks, so that
    /// most of them cost no allocation.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::span<char> allocate(std::size_t size);

    /// A copy of a text.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::string_view copy(std::string_view text);

private:
    std::vector<FileContents> _files; // moving one leaves its bytes in place
    std::vector<WipedBuffer> _largePieces;
    ChunkedList<char, WipedBuffer> _smallPieces;
};

} // namespace Rellinor
