#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/WipedBuffer.hpp"

namespace Rellinor {

/// How many bytes are kept free around those of a file, for who puts something there.
struct FileMargins {
    std::size_t before = 0;
    std::size_t behind = 0;
};

/// The bytes of a file, as they were read.
struct FileContents {
    WipedBuffer buffer;
    std::size_t begin = 0; ///< where the file's bytes stand in the buffer
    std::size_t size = 0;  ///< how many there are

    [[nodiscard]] std::span<char> bytes() noexcept { return buffer.bytes().subspan(begin, size); }
};

/// Why a file cannot be read.
enum class FileError : std::uint8_t {
    missing,
    noPermission,
    notAFile, ///< a folder, device, pipe or socket
    unreadable,
    tooLarge, ///< more bytes than the caller takes
};

/// Reads the whole regular file at `path`, following links. Never waits for a writer. The file may
/// change its size meanwhile; what is read up to its end then counts.
///
/// @throws std::bad_alloc
[[nodiscard]] std::expected<FileContents, FileError>
readFile(std::string_view path, FileMargins margins = {},
         std::uint64_t mostBytes = std::numeric_limits<std::uint64_t>::max());

/// A regular file, open for reading. Closed at the end of its life.
class OpenFile {
public:
    /// Opens the regular file at `path`, following links. Never waits for a writer.
    [[nodiscard]] static std::expected<OpenFile, FileError> at(const std::string& path) noexcept;

    OpenFile(OpenFile&& other) noexcept
        : _descriptor(std::exchange(other._descriptor, -1)), _size(other._size) {}

    OpenFile& operator=(OpenFile&&) = delete;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    /// How many bytes the file had when it was opened.
    [[nodiscard]] std::uint64_t size() const noexcept { return _size; }

    /// Reads some of the bytes that follow those read last; 0 at the end of the file. Absent if
    /// they cannot be read.
    [[nodiscard]] std::optional<std::size_t> readNext(std::span<char> target) const noexcept;

    /// Reads bytes from a position on, as many as are there and `target` takes. Absent if they
    /// cannot be read.
    [[nodiscard]] std::optional<std::size_t> read(std::uint64_t position,
                                                  std::span<char> target) const noexcept;

private:
    OpenFile(int descriptor, std::uint64_t size) noexcept : _descriptor(descriptor), _size(size) {}

    int _descriptor;
    std::uint64_t _size;
};

/// What may be at a path.
enum class FileKind : std::uint8_t {
    file,
    folder,
    other, ///< a device, pipe or socket
};

/// What is at `path`, following links, or why nobody can tell.
[[nodiscard]] std::expected<FileKind, FileError> kindOfFile(const std::string& path) noexcept;

/// The size of the regular file at `path`, 0 if nothing is there. Absent if something else is, such
/// as a link.
[[nodiscard]] std::optional<std::uint64_t> sizeOfFile(const std::string& path) noexcept;

/// Reads bytes of the regular file at `path` from a position on, following links. False if they are
/// not all there or cannot be read. Never waits for a writer.
[[nodiscard]] bool readBytes(const std::string& path, std::uint64_t position,
                             std::span<char> target) noexcept;

/// What the system keeps of a file, and changes whenever somebody writes to it.
struct FileStamp {
    std::uint64_t file = 0; ///< which one it is; 0 if nothing is there
    std::uint64_t size = 0;
    std::int64_t seconds = 0; ///< of the last change
    std::int64_t nanoseconds = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) noexcept = default;
};

/// The stamp of what is at `path`, not following a link.
[[nodiscard]] FileStamp stampOf(const std::string& path) noexcept;

/// The path without links on the way; as it is if nothing is there.
[[nodiscard]] std::string withoutLinks(std::string_view path);

/// Whether there is a folder at `path`, following links.
[[nodiscard]] bool isFolder(std::string_view path);

/// The names of the regular files in the folder at `path`, following links, in ascending order; or
/// why nobody can tell.
///
/// @throws std::bad_alloc
[[nodiscard]] std::expected<std::vector<std::string>, FileError> filesIn(const std::string& path);

/// Whether there is something at `path`, following links, that this user may read. That is no
/// promise: it holds for a folder too, and may have changed by the time of reading.
[[nodiscard]] bool isReadableFile(std::string_view path);

} // namespace Rellinor
