#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "Benchmarks/Measurement.hpp"
#include "Benchmarks/Run.hpp"

namespace Rellinor::Benchmarks {

/// One who reads a store.
struct Contestant {
    std::string name;

    /// Reads it so often, in this process.
    std::function<Run(std::size_t times)> measure;
};

/// One whose `read` returns what it made of the store.
template <typename Read>
Contestant contestant(std::string name, Read read) {
    return {std::move(name),
            [read = std::move(read)](std::size_t times) { return measured(read, times); }};
}

} // namespace Rellinor::Benchmarks
