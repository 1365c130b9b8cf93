#include "Fuzzers/Driver/Fuzzer.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace Rellinor::Fuzzers {

void expect(bool holds, const std::source_location& place) {
    if (!holds) {
        std::cerr << place.file_name() << ':' << place.line() << ": this does not hold\n";
        std::abort();
    }
}

} // namespace Rellinor::Fuzzers

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's own
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // NOLINTNEXTLINE(*-reinterpret-cast): bytes are characters to everything that is fuzzed
    Rellinor::Fuzzers::fuzz({reinterpret_cast<const char*>(data), size});
    return 0;
}
