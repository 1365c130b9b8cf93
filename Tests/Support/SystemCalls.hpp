#pragma once

#include <functional>

#include <sys/stat.h>
#include <sys/types.h>

namespace Rellinor::Tests {

/// What the library's calls of the operating system do instead, for a scope; those that hold no
/// function do what they always do. They stand between the library and the system in a test program
/// that is linked for it, and there is one at a time.
class SystemCalls {
public:
    std::function<int(const char* path, int flags)> open;
    std::function<ssize_t(int descriptor, void* target, std::size_t size)> read;
    std::function<ssize_t(int descriptor, void* target, std::size_t size, off_t place)> pread;
    std::function<int(int descriptor, struct ::stat* status)> fstat;

    SystemCalls();
    ~SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;
};

/// What the system itself does.
ssize_t systemRead(int descriptor, void* target, std::size_t size);
ssize_t systemReadAt(int descriptor, void* target, std::size_t size, off_t place);
int systemOpen(const char* path, int flags);
int systemStatus(int descriptor, struct ::stat* status);

} // namespace Rellinor::Tests
