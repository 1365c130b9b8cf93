#include "Host/OutputFile.hpp"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <stdlib.h> // NOLINT(modernize-deprecated-headers): mkostemp is not of the standard library
#include <sys/stat.h>
#include <unistd.h>

#include "Host/EndingSignals.hpp"

namespace Rellinor::Host {

namespace {

/// Whether there is something at a path that is no file, or a link to such a thing: to put a file
/// there could cost a pipe or device its name.
bool isNoFile(const std::string& path, const struct stat& status) {
    struct stat target = status;
    if (S_ISLNK(status.st_mode) && ::stat(path.c_str(), &target) != 0) {
        return false; // it leads nowhere
    }
    return !S_ISREG(target.st_mode);
}

/// The name by which a file without one can be reached.
std::string nameOf(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

/// Opens a file without a name in a folder; negative where there is no such file, or no way to give
/// it a name later.
int openUnnamed([[maybe_unused]] const std::string& folder) {
#if defined(O_TMPFILE)
    constexpr int flags = O_TMPFILE | O_WRONLY | O_CLOEXEC;
    const int descriptor = ::open(folder.c_str(), flags, S_IRUSR | S_IWUSR); // NOLINT(*-vararg)
    if (descriptor >= 0 && ::access(nameOf(descriptor).c_str(), F_OK) != 0) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
#else
    return -1;
#endif
}

/// Gives a file its first name, unless there is something of that name; if not, `errno` tells why.
bool linkUnnamed(int descriptor, const std::string& name) {
    return ::linkat(AT_FDCWD, nameOf(descriptor).c_str(), AT_FDCWD, name.c_str(),
                    AT_SYMLINK_FOLLOW) == 0;
}

} // namespace

OutputFile::OutputFile(std::string path, Existing existing)
    : _path(std::move(path)), _existing(existing), _buffer(open()), _stream(&_buffer) {}

OutputFile::~OutputFile() {
    if (!_temporary.empty()) {
        ::unlink(_temporary.c_str()); // after a renaming there is none
        removeOnEndingSignal(nullptr);
    }
}

void OutputFile::commit() {
    if (const int error = _buffer.finish(); error != 0 || !_stream) {
        fail(error != 0 ? error : EIO);
    }
    if (const int error = _temporary.empty() ? placeUnnamed() : place(); error != 0) {
        fail(error);
    }
    _buffer.close();
}

int OutputFile::place() const {
    // A new link fails where there is a file by now; a renaming would replace it.
    const int failed = _existing == Existing::kept ? ::link(_temporary.c_str(), _path.c_str())
                                                   : ::rename(_temporary.c_str(), _path.c_str());
    return failed != 0 ? errno : 0;
}

int OutputFile::placeUnnamed() const {
    if (linkUnnamed(_descriptor, _path)) {
        return 0;
    }
    if (errno != EEXIST || _existing == Existing::kept) {
        return errno;
    }
    // A file without a name replaces none. It has another one between two calls.
    const SignalsHeld held;
    for (int number = 0;; ++number) {
        const std::string name =
            beside(".rellinor-" + std::to_string(::getpid()) + '-' + std::to_string(number));
        if (linkUnnamed(_descriptor, name)) {
            if (::rename(name.c_str(), _path.c_str()) == 0) {
                return 0;
            }
            const int error = errno;
            ::unlink(name.c_str());
            return error;
        }
        if (errno != EEXIST) {
            return errno;
        }
    }
}

std::string OutputFile::beside(const std::string& name) const {
    return std::filesystem::path(_path).replace_filename(name).string();
}

void OutputFile::fail(const std::string& reason) const {
    throw OutputError(_path + ": " + reason);
}

void OutputFile::fail(int error) const {
    if (error == EEXIST) {
        fail("exists already; --force replaces it");
    }
    fail("cannot be written: " + std::generic_category().message(error));
}

int OutputFile::open() {
    struct stat status{};
    if (::lstat(_path.c_str(), &status) == 0) {
        if (isNoFile(_path, status)) {
            fail("exists already and is not a file");
        }
        if (_existing == Existing::kept) {
            fail(EEXIST);
        }
    } else if (errno != ENOENT || _path.empty()) {
        fail(errno);
    }
    _descriptor = openUnnamed(folder());
    if (_descriptor >= 0) {
        return _descriptor;
    }
    // In the same folder, since nothing can be renamed from one file system to another.
    _temporary = beside(".rellinor-XXXXXX");
    const SignalsHeld held; // or one that came between the next two lines would leave the file
    _descriptor = ::mkostemp(_temporary.data(), O_CLOEXEC); // with mode 0600
    if (_descriptor < 0) {
        fail(errno);
    }
    removeOnEndingSignal(_temporary.c_str());
    return _descriptor;
}

} // namespace Rellinor::Host
