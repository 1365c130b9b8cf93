#include "Host/Input.hpp"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Host/Descriptor.hpp"

namespace Rellinor::Host {

namespace {

using Bytes = std::vector<char, WipingAllocator<char>>;

constexpr std::string_view standardInput = "-";

/// Whether a path names a pipe that the process was started with. Any other pipe may wait for ever
/// for somebody to write.
bool isOwnPipe(const std::string& path) {
    const std::string_view folders[] = {"/dev/fd/", "/proc/self/fd/"};
    const bool isDescriptor =
        path == "/dev/stdin" ||
        std::ranges::any_of(folders, [&](auto folder) { return path.starts_with(folder); });
    struct stat status{};
    return isDescriptor && ::stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
}

[[noreturn]] void failToRead(int code) {
    throw InputError("the stream could not be read: " + std::generic_category().message(code));
}

Bytes bytesOf(const std::string& path) {
    constexpr std::size_t step = std::size_t{1} << 20U;

    const Descriptor descriptor(
        path == standardInput ? STDIN_FILENO
                              : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)); // NOLINT(*-vararg)
    Bytes bytes;
    std::size_t size = 0;
    while (true) {
        if (bytes.size() < size + step) {
            bytes.resize(std::max(2 * bytes.size(), step));
        }
        const ::ssize_t count = ::read(descriptor.number(), &bytes[size], bytes.size() - size);
        if (count == 0) {
            bytes.resize(size);
            return bytes;
        }
        if (count > 0) {
            size += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            failToRead(errno);
        }
    }
}

} // namespace

void overwrite(void* bytes, std::size_t size) noexcept {
    // Through volatile, so that no compiler takes it for useless.
    volatile char* const begin = static_cast<volatile char*>(bytes);
    std::fill(begin, begin + size, '\0');
}

Input::Input(const std::string& path)
    : _isStream(path == standardInput || isOwnPipe(path)),
      _bytes(_isStream ? bytesOf(path) : Bytes()),
      _file(_isStream ? ExportFile::inMemory(_bytes, path) : ExportFile::atPath(path)) {}

} // namespace Rellinor::Host
