// The scanner of separators alone, beside a plain loop over the bytes that does the same.

#include <cstddef>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "Benchmarks/LastPassGenerator.hpp"
#include "Private/Text/SeparatorScanner.hpp"

namespace Rellinor::Benchmarks {

namespace {

/// The sum of all separators' positions, byte by byte.
std::size_t sumByteByByte(std::string_view text) noexcept {
    std::size_t sum = 0;
    bool insideQuotes = false;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '"') {
            insideQuotes = !insideQuotes;
        } else if ((text[index] == ',' || text[index] == '\n') && !insideQuotes) {
            sum += index;
        }
    }
    return sum;
}

std::size_t sumByScanner(std::string_view text) noexcept {
    std::size_t sum = 0;
    SeparatorScanner separators(text);
    for (std::size_t next = separators.next(); next != text.size(); next = separators.next()) {
        sum += next;
    }
    return sum;
}

void measure(benchmark::State& state, std::size_t (*sum)(std::string_view) noexcept) {
    const std::string text = lastPassExport(static_cast<std::size_t>(state.range(0)));
    if (sumByScanner(text) != sumByteByByte(text)) {
        state.SkipWithError("the scanner differs from the plain loop");
    }
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(sum(text));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK_CAPTURE(measure, separatorsByteByByte, sumByteByByte)->Arg(1000)->Arg(40000);
BENCHMARK_CAPTURE(measure, separatorsByScanner, sumByScanner)->Arg(1000)->Arg(40000);

} // namespace

} // namespace Rellinor::Benchmarks
