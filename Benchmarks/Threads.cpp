// Measures by how much two threads import more than one in the same time, and prints it.

#include <algorithm>
#include <barrier>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <time.h> // NOLINT(modernize-deprecated-headers): the clock of a thread is POSIX

#include <CLI/CLI.hpp>

#include "Benchmarks/Import.hpp"
#include "Benchmarks/Measurement.hpp"
#include "Benchmarks/Process.hpp"
#include "Benchmarks/Store.hpp"

namespace Rellinor::Benchmarks {

namespace {

struct Words {
    std::string source;
    std::string path;
    std::size_t rounds = 25;
    std::size_t times = 3;
};

constexpr const char* description = "Imports a store on one thread and on two at once, in turns, "
                                    "each time in a process of its own, and\n"
                                    "prints as JSON how much more two import than one in the same "
                                    "time: 2 is twice as much. \"wall\" is\n"
                                    "by the clock, of the fastest runs, which neighbours disturb "
                                    "least; \"median\" is the median of the\n"
                                    "rounds, by the clock; \"processor\" is by the time that the "
                                    "threads' work itself took, which waiting\n"
                                    "for a lock or a processor does not count in.";

/// What importing a store so often on each of some threads at once takes.
struct Times {
    double wall = 0;
    double processor = 0; ///< of the slowest thread
};

double processorSeconds() {
    ::timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

Times timesOf(const Store& store, std::size_t threads, std::size_t times) {
    std::vector<double> wall(threads);
    std::vector<double> processor(threads);
    std::barrier begin(static_cast<std::ptrdiff_t>(threads));
    {
        std::vector<std::jthread> running;
        running.reserve(threads);
        for (std::size_t thread = 0; thread < threads; ++thread) {
            running.emplace_back([&, thread] {
                (void)imported(store); // so that the memory of each is warm
                begin.arrive_and_wait();
                const double before = processorSeconds();
                wall[thread] = secondsOf([&] {
                    for (std::size_t time = 0; time < times; ++time) {
                        (void)imported(store);
                    }
                });
                processor[thread] = processorSeconds() - before;
            });
        }
    }
    return {.wall = std::ranges::max(wall), .processor = std::ranges::max(processor)};
}

/// Measured in a process of its own, since what reads databases leaves connections behind.
Times timesInChild(const Store& store, std::size_t threads, std::size_t times) {
    // A run has room for one time alone.
    Run run{};
    const auto measured = [&](double Times::* time) {
        return inChild([&] {
                   run.seconds = timesOf(store, threads, times).*time;
                   return run;
               })
            .seconds;
    };
    return {.wall = measured(&Times::wall), .processor = measured(&Times::processor)};
}

/// How much more two do than one.
double gain(double one, double two) {
    return 2 * one / two;
}

void measure(const Words& words) {
    const auto store = storeOf(words.source, words.path);
    if (!store) {
        throw std::runtime_error("there is no such source");
    }
    std::vector<Times> one;
    std::vector<Times> two;
    std::vector<double> gains;
    for (std::size_t round = 0; round < words.rounds; ++round) {
        one.push_back(timesInChild(*store, 1, words.times));
        two.push_back(timesInChild(*store, 2, words.times));
        gains.push_back(gain(one.back().wall, two.back().wall));
    }
    const auto least = [](const std::vector<Times>& all, auto time) {
        return std::invoke(time, *std::ranges::min_element(all, {}, time));
    };
    std::cout << "{\"source\": \"" << words.source
              << "\", \"wall\": " << gain(least(one, &Times::wall), least(two, &Times::wall))
              << ", \"median\": " << median(gains) << ", \"processor\": "
              << gain(least(one, &Times::processor), least(two, &Times::processor))
              << ", \"seconds\": " << least(one, &Times::wall) << "}\n";
}

int run(int argc, char* argv[]) {
    Words words;
    CLI::App app(description);
    app.add_option("SOURCE", words.source, "The product, as rellinor sources names it")->required();
    app.add_option("FILE", words.path, "The store")->required();
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
