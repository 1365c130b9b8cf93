#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <utility>
#include <vector>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor::Benchmarks {

/// What an import delivers, which must succeed.
inline ImportedRecords imported(ImportSource source, const std::filesystem::path& path) {
    ImportedRecords records;
    RecordsImporter().records(URL::fileURLWithPath(path.native()), source,
                              [&](RecordsResult result) { records = std::move(result.value()); });
    return records;
}

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

} // namespace Rellinor::Benchmarks
