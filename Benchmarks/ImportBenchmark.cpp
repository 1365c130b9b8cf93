// End to end: a file in the page cache to delivered records, beside the floor of the same run.

#include <cstddef>
#include <string>
#include <vector>

#include <Rellinor/Rellinor.hpp>
#include <benchmark/benchmark.h>

#include "Benchmarks/Floor.hpp"
#include "Benchmarks/LastPassGenerator.hpp"
#include "Benchmarks/Measurement.hpp"
#include "Benchmarks/PeakMemory.hpp"
#include "Benchmarks/TemporaryFile.hpp"

namespace Rellinor::Benchmarks {

namespace {

std::size_t deliveredBytes(const ImportedRecords& records) {
    std::size_t bytes = 0;
    for (const auto& password : records.passwords) {
        bytes += password->username().size() + password->password().size() +
                 password->url().size() + password->service().value_or("").size();
    }
    for (const auto& note : records.notes) {
        bytes += note->title().size() + note->content().size();
    }
    return bytes;
}

void lastPass(benchmark::State& state) {
    const std::string text = lastPassExport(static_cast<std::size_t>(state.range(0)));
    const TemporaryFile file(text);
    const std::size_t delivered = deliveredBytes(imported(ImportSource::lastPass, file.path()));
    const std::size_t peak = peakMemoryOf(
        [&] { benchmark::DoNotOptimize(imported(ImportSource::lastPass, file.path())); });

    std::vector<double> imports;
    std::vector<double> ratios;
    for ([[maybe_unused]] auto iteration : state) {
        const double floor =
            secondsOf([&] { benchmark::DoNotOptimize(floorOf(file.path(), delivered)); });
        // Letting the records go is part of the work, as freeing the copy is part of the floor.
        const double import = secondsOf(
            [&] { benchmark::DoNotOptimize(imported(ImportSource::lastPass, file.path())); });
        imports.push_back(import);
        ratios.push_back(import / floor);
        state.SetIterationTime(import);
    }
    const auto bytes = static_cast<double>(text.size());
    state.counters["MB"] = bytes / 1e6;
    state.counters["MB/s"] = bytes / 1e6 / median(imports);
    state.counters["ns/row"] = median(imports) * 1e9 / static_cast<double>(state.range(0));
    state.counters["xFloor"] = median(ratios);
    state.counters["peak/file"] = static_cast<double>(peak) / bytes;
}

BENCHMARK(lastPass)->Arg(1000)->Arg(10000)->Arg(400000)->UseManualTime()->Unit(
    benchmark::kMillisecond);

} // namespace

} // namespace Rellinor::Benchmarks
