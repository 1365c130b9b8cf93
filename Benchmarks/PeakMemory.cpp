#include "Benchmarks/PeakMemory.hpp"

#include <array>
#include <fstream>
#include <string>
#include <string_view>

#include <sys/wait.h>
#include <unistd.h>

namespace Rellinor::Benchmarks {

namespace {

/// A line of /proc/self/status, in bytes.
std::size_t status(std::string_view name) {
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name)) {
            return std::stoull(line.substr(name.size() + 1)) * 1024;
        }
    }
    return 0;
}

std::size_t measured(const std::function<void()>& work) {
    std::ofstream("/proc/self/clear_refs") << "5"; // the peak starts anew
    const std::size_t before = status("VmRSS");
    work();
    return status("VmHWM") - before;
}

} // namespace

std::size_t peakMemoryOf(const std::function<void()>& work) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        return 0;
    }
    std::size_t peak = 0;
    const pid_t child = ::fork();
    if (child == 0) {
        peak = measured(work);
        const bool told = ::write(pipe[1], &peak, sizeof peak) == ssize_t{sizeof peak};
        ::_exit(told ? 0 : 1);
    }
    ::close(pipe[1]);
    if (::read(pipe[0], &peak, sizeof peak) != ssize_t{sizeof peak}) {
        peak = 0;
    }
    ::close(pipe[0]);
    ::waitpid(child, nullptr, 0);
    return peak;
}

} // namespace Rellinor::Benchmarks
