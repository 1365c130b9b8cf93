#include "Tests/Support/NoUnnamedFiles.hpp"

#include <cerrno>
#include <cstdarg>

#include <fcntl.h>

namespace {

bool hasNone = false; // NOLINT(*-avoid-non-const-global-variables)

} // namespace

// The linker gives these names to a function of the system and to what stands in its place.
// NOLINTBEGIN(*-identifier-naming,*-vararg)
extern "C" {

int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...);
}

int __wrap_open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const int mode = va_arg(arguments, int); // something, where there is none
    va_end(arguments);
#if defined(O_TMPFILE)
    if (hasNone && (flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
#endif
    return __real_open(path, flags, mode);
}

// NOLINTEND(*-identifier-naming,*-vararg)

namespace Rellinor::Tests {

NoUnnamedFiles::NoUnnamedFiles(bool isSo) noexcept {
    hasNone = isSo;
}

NoUnnamedFiles::~NoUnnamedFiles() {
    hasNone = false;
}

} // namespace Rellinor::Tests
