#pragma once

#include <span>
#include <vector>

#include "Platform/File.hpp"

namespace Rellinor {

/// Owns the texts that the raw records and the built records of one import point into.
///
/// What it takes over stays where it is until the memory is let go, and is wiped then.
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

private:
    std::vector<FileContents> _files; // moving one leaves its bytes in place
};

} // namespace Rellinor
