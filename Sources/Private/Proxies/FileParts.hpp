#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/FailureReason.hpp>

#include "Platform/File.hpp"
#include "Platform/WipedBuffer.hpp"

namespace Rellinor {

/// Some bytes of a file. Those of a file in memory are not copied.
class FilePart {
public:
    explicit FilePart(std::string_view bytes) noexcept : _bytes(bytes) {}

    FilePart(WipedBuffer buffer, std::size_t size) noexcept
        : _buffer(std::move(buffer)), _bytes(_buffer.bytes().data(), size) {}

    [[nodiscard]] std::string_view bytes() const noexcept { return _bytes; }

private:
    WipedBuffer _buffer; // keeps its place when it is moved
    std::string_view _bytes;
};

/// A file, or bytes in memory, of which a few parts are looked at.
class FileParts {
public:
    explicit FileParts(std::span<const char> bytes) noexcept : _bytes(bytes.data(), bytes.size()) {}

    /// A file, which is opened, or bytes in memory; or why there are none.
    [[nodiscard]] static std::expected<FileParts, FailureReason> of(const ExportFile& file);

    explicit FileParts(OpenFile file) noexcept : _file(std::move(file)) {}

    [[nodiscard]] std::uint64_t size() const noexcept {
        return _file ? _file->size() : _bytes.size();
    }

    /// The bytes from a position on, as many as are there and at most `most`. Absent if they cannot
    /// be read.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::optional<FilePart> part(std::uint64_t position, std::size_t most) const;

private:
    std::optional<OpenFile> _file;
    std::string_view _bytes;
};

} // namespace Rellinor
