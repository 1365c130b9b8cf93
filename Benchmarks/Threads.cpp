// Measures by how much two threads import more than one in the same time, and prints it.

#include <algorithm>
#include <array>
#include <barrier>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <CLI/CLI.hpp>

#include "Benchmarks/Import.hpp"
#include "Benchmarks/Measurement.hpp"
#include "Benchmarks/Process.hpp"
#include "Benchmarks/Store.hpp"

namespace Rellinor::Benchmarks {

namespace {

struct Words {
    std::string source;
    std::array<std::string, 2> paths;
    std::size_t rounds = 11;
    std::size_t times = 3;
};

constexpr const char* description =
    "Imports a store on one thread, and two stores on two at once, in turns, each time in a\n"
    "process of its own, and does the same with a loop that shares nothing, which tells what the\n"
    "machine has to give. Prints as JSON how much more two do than one in the same time, 2 being\n"
    "twice as much: \"gain\" of the import, \"machine\" of the loop, and \"share\", what the one\n"
    "is of the other. Each is the median of the rounds.";

/// What the thread of this number does.
using Work = std::function<void(std::size_t)>;

/// The seconds that some work takes a thread when so many do it at once: their harmonic mean, since
/// what they get done in a second adds up.
double secondsOnThreads(std::size_t threads, const Work& work) {
    std::vector<double> seconds(threads);
    std::barrier begin(static_cast<std::ptrdiff_t>(threads));
    {
        std::vector<std::jthread> running;
        running.reserve(threads);
        for (std::size_t thread = 0; thread < threads; ++thread) {
            running.emplace_back([&, thread] {
                work(thread); // so that the memory of each is warm
                begin.arrive_and_wait();
                seconds[thread] = secondsOf([&] { work(thread); });
            });
        }
    }
    double inOneSecond = 0;
    for (const double one : seconds) {
        inOneSecond += 1 / one;
    }
    return static_cast<double>(threads) / inOneSecond;
}

/// How much more two threads do than one. Each number is measured in a process of its own, since
/// what reads databases leaves connections behind.
double gainOf(const Work& work) {
    const auto seconds = [&](std::size_t threads) {
        return inChild([&] {
                   Run run{};
                   run.seconds = secondsOnThreads(threads, work);
                   return run;
               })
            .seconds;
    };
    const double one = seconds(1);
    return 2 * one / seconds(2);
}

/// Takes about a tenth of a second and touches no memory.
void loop(std::size_t /*thread*/) {
    constexpr int steps = 50'000'000;

    std::uint64_t number = 1;
    for (int step = 0; step < steps; ++step) { // each waits for the one before
        number ^= number << 13U;
        number ^= number >> 7U;
        number ^= number << 17U;
    }
    if (number == 0) { // it never is, but asking makes sure that all is done
        throw std::logic_error("the loop is broken");
    }
}

void measure(const Words& words) {
    std::vector<Store> stores;
    for (const std::string& path : words.paths) {
        const auto store = storeOf(words.source, path);
        if (!store) {
            throw std::runtime_error("there is no such source");
        }
        stores.push_back(*store);
    }
    const auto import = [&](std::size_t thread) {
        for (std::size_t time = 0; time < words.times; ++time) {
            (void)imported(stores.at(thread));
        }
    };
    std::vector<double> gains;
    std::vector<double> machine;
    std::vector<double> shares;
    for (std::size_t round = 0; round < words.rounds; ++round) {
        gains.push_back(gainOf(import));
        machine.push_back(gainOf(loop));
        shares.push_back(gains.back() / machine.back());
    }
    std::cout << "{\"source\": \"" << words.source << "\", \"gain\": " << median(gains)
              << ", \"machine\": " << median(machine) << ", \"share\": " << median(shares) << "}\n";
}

int run(int argc, char* argv[]) {
    Words words;
    CLI::App app(description);
    app.add_option("SOURCE", words.source, "The product, as rellinor sources names it")->required();
    app.add_option("FILES", words.paths, "Two stores of one size")->required();
    app.add_option("--rounds", words.rounds, "How often both run")->check(CLI::PositiveNumber);
    app.add_option("--times", words.times, "How often a thread imports the store in each")
        ->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);
    measure(words);
    return std::cout.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace Rellinor::Benchmarks

int main(int argc, char* argv[]) {
    try {
        return Rellinor::Benchmarks::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "rellinor-threads: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
