#include "Platform/ThreadTime.hpp"

#include <ctime>

#include "Platform/Fault.hpp"

namespace Rellinor {

std::chrono::nanoseconds threadTime() noexcept {
    ::timespec time{};
    require(::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time) == 0);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace Rellinor
