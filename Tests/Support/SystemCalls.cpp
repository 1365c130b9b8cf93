#include "Tests/Support/SystemCalls.hpp"

#include <cstdarg>
#include <cstdlib>
#include <utility>

#include <fcntl.h>

// The linker gives these names to a function of the system and to what stands in its place.
// NOLINTBEGIN(*-identifier-naming,*-vararg)
extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int descriptor, void* target, std::size_t size);
ssize_t __real_pread(int descriptor, void* target, std::size_t size, off_t place);
int __real_fstat(int descriptor, struct stat* status);

int __wrap_open(const char* path, int flags, ...);
ssize_t __wrap_read(int descriptor, void* target, std::size_t size);
ssize_t __wrap_pread(int descriptor, void* target, std::size_t size, off_t place);
int __wrap_fstat(int descriptor, struct stat* status);
}

namespace {

Rellinor::Tests::SystemCalls* current = nullptr; // NOLINT(*-avoid-non-const-global-variables)

/// Calls what a test has put in the place of a call, which is done without it meanwhile.
template <typename Function, typename... Arguments>
auto instead(Function Rellinor::Tests::SystemCalls::* call, auto& original,
             Arguments... arguments) {
    Rellinor::Tests::SystemCalls* const calls = std::exchange(current, nullptr);
    const auto result =
        calls != nullptr && calls->*call ? (calls->*call)(arguments...) : original(arguments...);
    current = calls;
    return result;
}

} // namespace

int __wrap_open(const char* path, int flags, ...) {
    if ((flags & O_CREAT) != 0) {
        std::va_list arguments;
        va_start(arguments, flags);
        const int mode = va_arg(arguments, int);
        va_end(arguments);
        return __real_open(path, flags, mode);
    }
    return instead(&Rellinor::Tests::SystemCalls::open, __real_open, path, flags);
}

ssize_t __wrap_read(int descriptor, void* target, std::size_t size) {
    return instead(&Rellinor::Tests::SystemCalls::read, __real_read, descriptor, target, size);
}

ssize_t __wrap_pread(int descriptor, void* target, std::size_t size, off_t place) {
    return instead(&Rellinor::Tests::SystemCalls::pread, __real_pread, descriptor, target, size,
                   place);
}

int __wrap_fstat(int descriptor, struct stat* status) {
    return instead(&Rellinor::Tests::SystemCalls::fstat, __real_fstat, descriptor, status);
}

namespace Rellinor::Tests {

SystemCalls::SystemCalls() {
    if (current != nullptr) {
        std::abort();
    }
    current = this;
}

SystemCalls::~SystemCalls() {
    current = nullptr;
}

ssize_t systemRead(int descriptor, void* target, std::size_t size) {
    return __real_read(descriptor, target, size);
}

ssize_t systemReadAt(int descriptor, void* target, std::size_t size, off_t place) {
    return __real_pread(descriptor, target, size, place);
}

int systemOpen(const char* path, int flags) {
    return __real_open(path, flags);
}

int systemStatus(int descriptor, struct ::stat* status) {
    return __real_fstat(descriptor, status);
}

} // namespace Rellinor::Tests

// NOLINTEND(*-identifier-naming,*-vararg)
