#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

#include "Benchmarks/MemoryUse.hpp"
#include "Benchmarks/Run.hpp"

namespace Rellinor::Benchmarks {

inline double secondsOf(auto&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// Reads a store once. Letting go what was read is part of the work, and looking at it is not.
Run measuredOnce(const auto& read) {
    Run run;
    const MemoryUse before;
    std::optional<decltype(read())> records;
    run.seconds = secondsOf([&] { records.emplace(read()); });
    run.delivered = deliveredBy(*records);
    run.seconds += secondsOf([&] { records.reset(); });
    run.pageFaults = before.faultsSince();
    run.peakMemory = before.growth();
    return run;
}

/// Reads a store so often: the time is the median of the later half, when the process is warm.
Run measured(const auto& read, std::size_t times) {
    std::vector<double> seconds;
    for (;;) {
        Run run = measuredOnce(read);
        seconds.push_back(run.seconds);
        if (seconds.size() >= times) {
            run.seconds = median({seconds.begin() + std::ssize(seconds) / 2, seconds.end()});
            return run;
        }
    }
}

} // namespace Rellinor::Benchmarks
