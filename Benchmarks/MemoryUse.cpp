#include "Benchmarks/MemoryUse.hpp"

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>

#include <sys/resource.h>

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

std::size_t minorFaults() {
    ::rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_minflt); // NOLINT(*-union-access): the C library's
}

std::size_t residentFromNowOn() {
    std::ofstream("/proc/self/clear_refs") << "5"; // the peak starts anew
    return status("VmRSS");
}

} // namespace

MemoryUse::MemoryUse() : _resident(residentFromNowOn()), _faults(minorFaults()) {}

std::size_t MemoryUse::growth() const {
    return std::max(status("VmHWM"), _resident) - _resident;
}

std::size_t MemoryUse::faultsSince() const {
    return minorFaults() - _faults;
}

} // namespace Rellinor::Benchmarks
