#include "Platform/File.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Rellinor {

namespace {

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
    // Without O_NONBLOCK, opening a pipe would wait for its writer. Without O_NOCTTY, a terminal
    // could become that of the process.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    return uninterrupted([&] { return ::open(path.c_str(), flags); }); // NOLINT(*-vararg)
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

std::expected<OpenFile, FileError> OpenFile::at(const std::string& path) noexcept {
    if (path.contains('\0')) {
        return std::unexpected(
            FileError::missing); // cut at its NUL, the path would name another file
    }
    const int descriptor = openForReading(path);
    if (descriptor < 0) {
        return std::unexpected(errorOfOpening(errno));
    }
    OpenFile file(descriptor, 0);
    struct stat status{};
    if (::fstat(descriptor, &status) != 0) {
        return std::unexpected(FileError::unreadable);
    }
    if (!S_ISREG(status.st_mode)) {
        return std::unexpected(FileError::notAFile);
    }
    file._size = static_cast<std::uint64_t>(status.st_size);
    return file;
}

OpenFile::~OpenFile() {
    if (_descriptor >= 0) {
        ::close(_descriptor);
    }
}

std::optional<std::size_t> OpenFile::readNext(std::span<char> target) const noexcept {
    const ssize_t count = uninterrupted(
        [&] { return ::read(_descriptor, target.data(), std::min(target.size(), longestRead)); });
    return count >= 0 ? std::optional(static_cast<std::size_t>(count)) : std::nullopt;
}

std::optional<std::size_t> OpenFile::read(std::uint64_t position,
                                          std::span<char> target) const noexcept {
    std::size_t done = 0;
    while (done < target.size()) {
        const std::span<char> rest = target.subspan(done);
        const ssize_t count = uninterrupted([&] {
            return ::pread(_descriptor, rest.data(), std::min(rest.size(), longestRead),
                           static_cast<off_t>(position + done));
        });
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::expected<FileContents, FileError> readFile(std::string_view path, FileMargins margins,
                                                std::uint64_t mostBytes) {
    const auto file = OpenFile::at(std::string(path));
    if (!file) {
        return std::unexpected(file.error());
    }
    if (file->size() > mostBytes) {
        return std::unexpected(FileError::tooLarge);
    }

    // One byte more than the file holds, so that its end shows without growing the buffer.
    const std::size_t expected = file->size() + 1;
    FileContents contents{.buffer = WipedBuffer(margins.before + expected + margins.behind),
                          .begin = margins.before};
    for (;;) {
        if (roomBehind(contents, margins).empty()) {
            grow(contents);
        }
        const auto count = file->readNext(roomBehind(contents, margins));
        if (!count) {
            return std::unexpected(FileError::unreadable);
        }
        if (*count == 0) {
            return contents;
        }
        contents.size += *count;
        if (contents.size > mostBytes) {
            return std::unexpected(FileError::tooLarge);
        }
    }
}

std::expected<FileKind, FileError> kindOfFile(const std::string& path) noexcept {
    struct stat status{};
    if (path.contains('\0') || ::stat(path.c_str(), &status) != 0) {
        return std::unexpected(path.contains('\0') ? FileError::missing : errorOfOpening(errno));
    }
    if (S_ISDIR(status.st_mode)) {
        return FileKind::folder;
    }
    return S_ISREG(status.st_mode) ? FileKind::file : FileKind::other;
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
    const auto file = OpenFile::at(path);
    return file && file->read(position, target) == target.size();
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
    const std::string given(path);
    const std::unique_ptr<char, decltype(&::free)> resolved(::realpath(given.c_str(), nullptr),
                                                            &::free);
    return resolved ? resolved.get() : given;
}

bool isFolder(std::string_view path) {
    struct stat status{};
    return !path.contains('\0') && ::stat(std::string(path).c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

std::expected<std::vector<std::string>, FileError> filesIn(const std::string& path) {
    const std::unique_ptr<DIR, decltype([](DIR* folder) { ::closedir(folder); })> folder(
        path.contains('\0') ? nullptr : ::opendir(path.c_str()));
    if (!folder) {
        return std::unexpected(path.contains('\0') ? FileError::missing : errorOfOpening(errno));
    }
    std::vector<std::string> names; // NOLINT(misc-const-correctness): it is filled
    while (const dirent* const entry = ::readdir(folder.get())) {
        const std::string_view name(std::data(entry->d_name));
        if (kindOfFile(path + '/' + std::string(name)) == FileKind::file) {
            names.emplace_back(name);
        }
    }
    std::ranges::sort(names);
    return names;
}

bool isReadableFile(std::string_view path) {
    return !path.contains('\0') && ::access(std::string(path).c_str(), R_OK) == 0;
}

} // namespace Rellinor
