#pragma once

#include <cstddef>

#include <sys/resource.h>
#include <sys/stat.h>

namespace Rellinor::Tests {

/// The rights that new files do not get, of this process and those that it starts, for a scope.
class Umask {
public:
    explicit Umask(mode_t mask) : _before(::umask(mask)) {}

    ~Umask() { ::umask(_before); }

    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

private:
    mode_t _before;
};

/// The longest file that this process and those that it starts can write, for a scope. A write
/// beyond it ends the process unless it ignores SIGXFSZ; then it fails, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::size_t size) {
        ::getrlimit(RLIMIT_FSIZE, &_before);
        rlimit limit = _before;
        limit.rlim_cur = size;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &_before); }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit _before{};
};

} // namespace Rellinor::Tests
