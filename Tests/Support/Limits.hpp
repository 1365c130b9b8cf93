#pragma once

#include <cstddef>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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

/// Lets this process open no more files than it has open, for a scope.
class NoMoreDescriptors {
public:
    NoMoreDescriptors() {
        ::getrlimit(RLIMIT_NOFILE, &_before);
        const int lowestFree = ::dup(0);
        ::close(lowestFree);
        rlimit limit = _before;
        limit.rlim_cur = static_cast<rlim_t>(lowestFree);
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }

    ~NoMoreDescriptors() { ::setrlimit(RLIMIT_NOFILE, &_before); }

    NoMoreDescriptors(const NoMoreDescriptors&) = delete;
    NoMoreDescriptors& operator=(const NoMoreDescriptors&) = delete;

private:
    rlimit _before{};
};

} // namespace Rellinor::Tests
