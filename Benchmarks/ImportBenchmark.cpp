// End to end: a file in the page cache to delivered records, beside the floor of the same run.

#include <cstddef>
#include <string>
#include <vector>

#include <Rellinor/Rellinor.hpp>
#include <benchmark/benchmark.h>

#include "Benchmarks/DashlaneGenerator.hpp"
#include "Benchmarks/Floor.hpp"
#include "Benchmarks/KeePassGenerator.hpp"
#include "Benchmarks/LastPassGenerator.hpp"
#include "Benchmarks/Measurement.hpp"
#include "Benchmarks/OnePasswordGenerator.hpp"
#include "Benchmarks/PeakMemory.hpp"
#include "Benchmarks/TemporaryFile.hpp"
#include "Benchmarks/TirelGenerator.hpp"

namespace Rellinor::Benchmarks {

namespace {

std::size_t deliveredBytes(const ImportedRecords& records) {
    std::size_t bytes = 0;
    for (const auto& password : records.passwords) {
        bytes += password->username().size() + password->password().size() +
                 password->url().size() + password->service().value_or("").size() +
                 password->note().value_or("").size();
    }
    for (const auto& note : records.notes) {
        bytes += note->title().size() + note->content().size();
    }
    for (const auto& card : records.cards) {
        bytes += card->cardNumber().size() + card->custName().size() + card->holderName().size() +
                 card->cvv().size() + card->pin().size() + card->note().size();
    }
    return bytes;
}

/// Measures imports of an export with this text.
void measure(benchmark::State& state, ImportSource source, const std::string& text) {
    const TemporaryFile file(text);
    const std::size_t delivered = deliveredBytes(imported(source, file.path()));
    const auto import = [&] { benchmark::DoNotOptimize(imported(source, file.path())); };
    const std::size_t peak = peakMemoryOf(import);

    std::vector<double> imports;
    std::vector<double> ratios;
    for ([[maybe_unused]] auto iteration : state) {
        const double floor =
            secondsOf([&] { benchmark::DoNotOptimize(floorOf(file.path(), delivered)); });
        // Letting the records go is part of the work, as freeing the copy is part of the floor.
        imports.push_back(secondsOf(import));
        ratios.push_back(imports.back() / floor);
        state.SetIterationTime(imports.back());
    }
    const auto bytes = static_cast<double>(text.size());
    state.counters["MB"] = bytes / 1e6;
    state.counters["MB/s"] = bytes / 1e6 / median(imports);
    state.counters["ns/row"] = median(imports) * 1e9 / static_cast<double>(state.range(0));
    state.counters["xFloor"] = median(ratios);
    state.counters["peak/file"] = static_cast<double>(peak) / bytes;
}

void lastPass(benchmark::State& state) {
    measure(state, ImportSource::lastPass,
            lastPassExport(static_cast<std::size_t>(state.range(0))));
}

void keePass(benchmark::State& state) {
    measure(state, ImportSource::keePassXC,
            keePassExport(static_cast<std::size_t>(state.range(0))));
}

void dashlane(benchmark::State& state) {
    measure(state, ImportSource::dashlane,
            dashlaneExport(static_cast<std::size_t>(state.range(0))));
}

void onePassword(benchmark::State& state) {
    measure(state, ImportSource::onePassword,
            onePasswordExport(static_cast<std::size_t>(state.range(0))));
}

void tirel(benchmark::State& state) {
    measure(state, ImportSource::tirel, tirelExport(static_cast<std::size_t>(state.range(0))));
}

BENCHMARK(lastPass)->Arg(1000)->Arg(10000)->Arg(400000)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(keePass)->Arg(1000)->Arg(10000)->Arg(400000)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(dashlane)->Arg(1000)->Arg(10000)->Arg(400000)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(onePassword)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(200000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(tirel)->Arg(1000)->Arg(10000)->Arg(300000)->UseManualTime()->Unit(
    benchmark::kMillisecond);

} // namespace

} // namespace Rellinor::Benchmarks
