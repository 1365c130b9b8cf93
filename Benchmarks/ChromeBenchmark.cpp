// End to end: a login database in the page cache to delivered records, beside a bare loop over the
// same rows in the same run.

#include <cstddef>
#include <filesystem>
#include <vector>

#include <Rellinor/Rellinor.hpp>
#include <benchmark/benchmark.h>

#include "Benchmarks/ChromeDatabase.hpp"
#include "Benchmarks/Measurement.hpp"
#include "Benchmarks/PeakMemory.hpp"
#include "Benchmarks/TemporaryFile.hpp"

namespace Rellinor::Benchmarks {

namespace {

void chrome(benchmark::State& state) {
    const TemporaryFile file;
    makeChromeDatabase(file.path(), static_cast<std::size_t>(state.range(0)));
    const auto import = [&] {
        benchmark::DoNotOptimize(imported(ImportSource::chrome, file.path()));
    };
    const std::size_t peak = peakMemoryOf(import);

    std::vector<double> imports;
    std::vector<double> ratios;
    for ([[maybe_unused]] auto iteration : state) {
        const double loop =
            secondsOf([&] { benchmark::DoNotOptimize(readChromeDatabase(file.path())); });
        // Letting the records go is part of the work.
        imports.push_back(secondsOf(import));
        ratios.push_back(imports.back() / loop);
        state.SetIterationTime(imports.back());
    }
    const auto bytes = static_cast<double>(std::filesystem::file_size(file.path()));
    state.counters["MB"] = bytes / 1e6;
    state.counters["MB/s"] = bytes / 1e6 / median(imports);
    state.counters["ns/row"] = median(imports) * 1e9 / static_cast<double>(state.range(0));
    state.counters["xLoop"] = median(ratios);
    state.counters["peak/file"] = static_cast<double>(peak) / bytes;
}

BENCHMARK(chrome)->Arg(1000)->Arg(10000)->Arg(200000)->UseManualTime()->Unit(
    benchmark::kMillisecond);

} // namespace

} // namespace Rellinor::Benchmarks
