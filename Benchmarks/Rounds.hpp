#pragma once

#include <cstddef>
#include <iosfwd>
#include <vector>

#include "Benchmarks/Contestant.hpp"
#include "Benchmarks/Run.hpp"

namespace Rellinor::Benchmarks {

/// The runs of one contestant, each in a process of its own.
struct Runs {
    Contestant contestant;
    std::vector<Run> runs;

    /// Runs once more. A failure is thrown, with the contestant's name.
    ///
    /// @param times  how often it reads the store in that process
    const Run& runAgain(std::size_t times = 1);
};

struct Rounds {
    std::size_t count;

    /// How often everybody reads the store in each process.
    std::size_t times;

    /// How many bytes of memory are made ready for each process.
    std::size_t memory;
};

/// Lets everybody run in turns, the order rotating from round to round. Throws if one does not find
/// what is to be found.
void runInTurns(std::vector<Runs>& everybody, const Rounds& rounds, const Delivered& delivered);

/// Writes what everybody's runs took, as a JSON object.
void writeJSON(const std::vector<Runs>& everybody, std::ostream& out);

} // namespace Rellinor::Benchmarks
