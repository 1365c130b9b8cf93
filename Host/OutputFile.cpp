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

} // namespace

OutputFile::OutputFile(std::string path, Existing existing)
    : _path(std::move(path)), _existing(existing), _buffer(open()), _stream(&_buffer) {}

OutputFile::~OutputFile() {
    ::unlink(_temporary.c_str()); // after a renaming there is none
    removeOnEndingSignal(nullptr);
}

void OutputFile::commit() {
    if (const int error = _buffer.finish(); error != 0 || !_stream) {
        fail(error != 0 ? error : EIO);
    }
    // A new link fails where there is a file by now; a renaming would replace it.
    const int failed = _existing == Existing::kept ? ::link(_temporary.c_str(), _path.c_str())
                                                   : ::rename(_temporary.c_str(), _path.c_str());
    if (failed != 0) {
        fail(errno);
    }
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
    // In the same folder, since nothing can be renamed from one file system to another.
    _temporary = std::filesystem::path(_path).replace_filename(".rellinor-XXXXXX").string();
    const EndingSignalsHeld
        held; // or one that came between the next two lines would leave the file
    const int descriptor = ::mkostemp(_temporary.data(), O_CLOEXEC); // with mode 0600
    if (descriptor < 0) {
        fail(errno);
    }
    removeOnEndingSignal(_temporary.c_str());
    return descriptor;
}

} // namespace Rellinor::Host
