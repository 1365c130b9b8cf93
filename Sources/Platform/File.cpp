#include "Platform/File.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Rellinor {

namespace {

class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) noexcept : _descriptor(descriptor) {}

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    ~FileDescriptor() {
        if (isOpen()) {
            ::close(_descriptor);
        }
    }

    [[nodiscard]] bool isOpen() const noexcept { return _descriptor >= 0; }

    [[nodiscard]] int get() const noexcept { return _descriptor; }

private:
    int _descriptor;
};

/// The longest read that every platform accepts in one call is a little under 2 GiB.
constexpr std::size_t longestRead = std::size_t{1} << 30U;

/// What a call of the system gives when no signal interrupts it.
auto uninterrupted(auto call) noexcept {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

int openForReading(const std::string& path) noexcept {
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    return uninterrupted([&] {
        return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // NOLINT(*-vararg)
    });
}

FileError errorOfOpening(int error) noexcept {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return FileError::missing;
    case EACCES:
    case EPERM:
        return FileError::noPermission;
    case ENXIO: // a socket
        return FileError::notAFile;
    default:
        return FileError::unreadable;
    }
}

/// Reads up to `target.size()` bytes; 0 at the end of the file, negative on failure.
ssize_t readSome(const FileDescriptor& file, std::span<char> target) noexcept {
    return uninterrupted(
        [&] { return ::read(file.get(), target.data(), std::min(target.size(), longestRead)); });
}

void grow(FileContents& contents) {
    FileContents larger{.buffer = WipedBuffer(contents.buffer.size() * 2),
                        .begin = contents.begin,
                        .size = contents.size};
    std::ranges::copy(contents.bytes(), larger.bytes().begin());
    std::swap(contents, larger);
}

/// Where more of the file may be read to.
std::span<char> roomBehind(FileContents& contents, const FileMargins& margins) {
    const std::size_t end = contents.begin + contents.size;
    return contents.buffer.bytes().subspan(end, contents.buffer.size() - end - margins.behind);
}

} // namespace

std::expected<FileContents, FileError> readFile(std::string_view path, FileMargins margins,
                                                std::uint64_t mostBytes) {
    if (path.contains('\0')) {
        return std::unexpected(
            FileError::missing); // cut at its NUL, the path would name another file
    }
    const FileDescriptor file(openForReading(std::string(path)));
    if (!file.isOpen()) {
        return std::unexpected(errorOfOpening(errno));
    }
    struct stat status{};
    if (::fstat(file.get(), &status) != 0) {
        return std::unexpected(FileError::unreadable);
    }
    if (!S_ISREG(status.st_mode)) {
        return std::unexpected(FileError::notAFile);
    }
    if (static_cast<std::uint64_t>(status.st_size) > mostBytes) {
        return std::unexpected(FileError::tooLarge);
    }

    // One byte more than the file holds, so that its end shows without growing the buffer.
    const auto expected = static_cast<std::size_t>(status.st_size) + 1;
    FileContents contents{.buffer = WipedBuffer(margins.before + expected + margins.behind),
                          .begin = margins.before};
    for (;;) {
        if (roomBehind(contents, margins).empty()) {
            grow(contents);
        }
        const ssize_t count = readSome(file, roomBehind(contents, margins));
        if (count < 0) {
            return std::unexpected(FileError::unreadable);
        }
        if (count == 0) {
            return contents;
        }
        contents.size += static_cast<std::size_t>(count);
        if (contents.size > mostBytes) {
            return std::unexpected(FileError::tooLarge);
        }
    }
}

std::optional<std::uint64_t> sizeOfFile(const std::string& path) noexcept {
    struct stat status{};
    if (::lstat(path.c_str(), &status) != 0) {
        return 0;
    }
    return S_ISREG(status.st_mode) ? std::optional(static_cast<std::uint64_t>(status.st_size))
                                   : std::nullopt;
}

bool readBytes(const std::string& path, std::uint64_t position, std::span<char> target) noexcept {
    const FileDescriptor file(openForReading(path));
    while (file.isOpen() && !target.empty()) {
        const ssize_t count = uninterrupted([&] {
            return ::pread(file.get(), target.data(), target.size(), static_cast<off_t>(position));
        });
        if (count <= 0) {
            return false;
        }
        position += static_cast<std::uint64_t>(count);
        target = target.subspan(static_cast<std::size_t>(count));
    }
    return target.empty();
}

FileStamp stampOf(const std::string& path) noexcept {
    struct stat status{};
    if (::lstat(path.c_str(), &status) != 0) {
        return {};
    }
#if defined(__APPLE__)
    const timespec& changed = status.st_mtimespec;
#else
    const timespec& changed = status.st_mtim;
#endif
    return {.file = status.st_ino,
            .size = static_cast<std::uint64_t>(status.st_size),
            .seconds = changed.tv_sec,
            .nanoseconds = changed.tv_nsec};
}

std::string withoutLinks(std::string_view path) {
    std::string given(path);
    const std::unique_ptr<char, decltype(&::free)> resolved(::realpath(given.c_str(), nullptr),
                                                            &::free);
    return resolved ? resolved.get() : given;
}

bool isFolder(std::string_view path) {
    struct stat status{};
    return !path.contains('\0') && ::stat(std::string(path).c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

bool isReadableFile(std::string_view path) {
    return !path.contains('\0') && ::access(std::string(path).c_str(), R_OK) == 0;
}

} // namespace Rellinor
