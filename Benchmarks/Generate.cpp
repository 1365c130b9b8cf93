// Writes an export of invented data to standard output: rellinor-generate ROWS [SEED]

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <span>
#include <string>

#include "Benchmarks/LastPassGenerator.hpp"

int main(int argc, char* argv[]) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::cerr << "usage: rellinor-generate ROWS [SEED]\n";
        return 2;
    }
    try {
        const std::size_t rows = std::stoull(arguments[1]);
        const std::uint64_t seed = arguments.size() == 3 ? std::stoull(arguments[2]) : 1;
        std::cout << Rellinor::Benchmarks::lastPassExport(rows, seed) << std::flush;
    } catch (const std::exception&) {
        std::cerr << "rellinor-generate: ROWS and SEED are numbers\n";
        return 2;
    }
    return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
}
