#include "Tests/Support/Descriptors.hpp"

#include <algorithm>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace Rellinor::Tests {

std::size_t openDescriptors() {
    const auto largest = static_cast<int>(::sysconf(_SC_OPEN_MAX));
    std::size_t count = 0;
    for (int descriptor = 0; descriptor < std::min(largest, 4096); ++descriptor) {
        const bool isOpen = ::fcntl(descriptor, F_GETFD) != -1; // NOLINT(*-vararg)
        count += isOpen ? 1 : 0;
    }
    return count;
}

bool allowDescriptors(std::size_t count) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return false;
    }
    limit.rlim_cur = std::max<rlim_t>(limit.rlim_cur, count);
    return limit.rlim_cur <= limit.rlim_max && ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
}

} // namespace Rellinor::Tests
