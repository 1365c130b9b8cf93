#include "Benchmarks/Rounds.hpp"

#include <exception>
#include <ostream>
#include <stdexcept>
#include <string_view>

#include "Benchmarks/Process.hpp"

namespace Rellinor::Benchmarks {

namespace {

void writeList(std::string_view name, const std::vector<Run>& runs, auto value, std::ostream& out) {
    out << '"' << name << "\": [";
    for (const Run& run : runs) {
        out << (&run == runs.data() ? "" : ", ") << value(run);
    }
    out << ']';
}

} // namespace

const Run& Runs::runAgain(std::size_t times) {
    try {
        return runs.emplace_back(inChild([&] { return contestant.measure(times); }));
    } catch (const std::exception& error) {
        throw std::runtime_error(contestant.name + ": " + error.what());
    }
}

void runInTurns(std::vector<Runs>& everybody, const Rounds& rounds, const Delivered& delivered) {
    for (std::size_t round = 0; round < rounds.count; ++round) {
        for (std::size_t turn = 0; turn < everybody.size(); ++turn) {
            haveMemoryAtHand(rounds.memory);
            Runs& runs = everybody[(round + turn) % everybody.size()];
            if (runs.runAgain(rounds.times).delivered != delivered) {
                throw std::runtime_error(runs.contestant.name + " found other records");
            }
        }
    }
}

void writeJSON(const std::vector<Runs>& everybody, std::ostream& out) {
    out << '{';
    for (const Runs& runs : everybody) {
        out << (&runs == everybody.data() ? "" : ", ") << '"' << runs.contestant.name << "\": {";
        writeList("seconds", runs.runs, [](const Run& run) { return run.seconds; }, out);
        out << ", ";
        writeList("peak", runs.runs, [](const Run& run) { return run.peakMemory; }, out);
        out << ", ";
        writeList("faults", runs.runs, [](const Run& run) { return run.pageFaults; }, out);
        out << '}';
    }
    out << '}';
}

} // namespace Rellinor::Benchmarks
