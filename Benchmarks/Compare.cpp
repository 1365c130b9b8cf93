// Compares the import of a store with its floor and its peers, and prints what their runs took.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

#include "Benchmarks/Contestant.hpp"
#include "Benchmarks/Floor.hpp"
#include "Benchmarks/Import.hpp"
#include "Benchmarks/Peers/Peers.hpp"
#include "Benchmarks/Process.hpp"
#include "Benchmarks/Rounds.hpp"
#include "Benchmarks/Store.hpp"

namespace Rellinor::Benchmarks {

namespace {

struct Words {
    std::string source;
    std::string path;
    std::vector<std::string> programs;
    std::vector<std::string> without;
    std::string alone;
    std::size_t rounds = 5;
    std::size_t times = 200;
    bool isWarm = false;
    bool isHostile = false;
};

constexpr const char* description =
    "Imports a store and lets its peers read it, each time in a process of its own, in turns, and\n"
    "prints the seconds, the peak memory and the page faults of each run as JSON. Everybody must\n"
    "find the same records.";

void readWords(CLI::App& app, Words& words) {
    app.add_option("SOURCE", words.source, "The product, as rellinor sources names it")->required();
    app.add_option("FILE", words.path, "The store")->required();
    app.add_option("--rounds", words.rounds, "How often each runs")->check(CLI::PositiveNumber);
    app.add_flag("--warm", words.isWarm, "Let each process read the store many times");
    app.add_option("--times", words.times, "How many times that is")->check(CLI::PositiveNumber);
    app.add_flag("--hostile", words.isHostile, "The import beside its floor alone; it may fail");
    app.add_option("--program", words.programs,
                   "A peer: NAME=PROGRAM, which is given SOURCE and FILE");
    app.add_option("--without", words.without, "A peer that does not take part");
    app.add_option("--alone", words.alone, "Run this contestant once, in this process");
}

Contestant importOf(const Store& store, bool mayFail) {
    return mayFail ? contestant("import", [store] { return importedIfPossible(store); })
                   : contestant("import", [store] { return imported(store); });
}

Contestant programOf(const std::string& assignment, const Words& words) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
        throw std::runtime_error("--program takes NAME=PROGRAM");
    }
    return {assignment.substr(0, equals),
            [command = std::vector{assignment.substr(equals + 1), words.source, words.path}](
                std::size_t) { return byProgram(command); }};
}

/// All but the import itself.
std::vector<Contestant> othersOf(const Store& store, const Words& words,
                                 const Delivered& delivered) {
    std::vector<Contestant> others;
    if (store.format != StoreFormat::sqlite) {
        others.push_back(contestant("floor", [store, delivered] {
            floorOf(store.file, delivered.bytes);
            return delivered;
        }));
    }
    if (store.layout) {
        // Its texts are shorter where quotes are written twice, and a hostile file has other
        // records.
        others.push_back(contestant("faithful", [store, delivered, isHostile = words.isHostile] {
            const Import import = readFaithfully(store);
            if (!isHostile && deliveredBy(import).records() != delivered.records()) {
                throw std::runtime_error("a faithful reading finds another number of records");
            }
            return delivered;
        }));
    }
    if (!words.isHostile) {
        std::ranges::move(peersOf(store), std::back_inserter(others));
    }
    if (!words.isWarm) {
        for (const std::string& program : words.programs) {
            others.push_back(programOf(program, words));
        }
    }
    std::erase_if(others, [&words](const Contestant& other) {
        return std::ranges::find(words.without, other.name) != words.without.end();
    });
    return others;
}

void runAlone(const Contestant& import, const Store& store, const std::string& name) {
    std::vector<Contestant> readers = peersOf(store);
    readers.push_back(import);
    if (store.layout) {
        readers.push_back(
            contestant("faithful", [store] { return deliveredBy(readFaithfully(store)); }));
    }
    const auto found = std::ranges::find(readers, name, &Contestant::name);
    if (found == readers.end()) {
        throw std::runtime_error("there is no such contestant");
    }
    std::cout << found->measure(1).delivered.records() << '\n';
}

void compare(const Words& words) {
    const auto store = storeOf(words.source, words.path);
    if (!store) {
        throw std::runtime_error("there is no such source");
    }
    const Contestant import = importOf(*store, words.isHostile);
    if (!words.alone.empty()) {
        runAlone(import, *store, words.alone);
        return;
    }
    // Once to know what is right, and to have the file in the page cache.
    const Delivered delivered = Runs{import, {}}.runAgain().delivered;

    std::vector<Runs> everybody = {{import, {}}};
    for (Contestant& other : othersOf(*store, words, delivered)) {
        everybody.push_back({std::move(other), {}});
    }
    constexpr std::size_t memoryForByte = 4; // of the file: few take more
    const Rounds rounds{.count = words.rounds,
                        .times = words.isWarm ? words.times : 1,
                        .memory = std::filesystem::file_size(store->file) * memoryForByte};
    runInTurns(everybody, rounds, delivered);
    std::cout << "{\"source\": \"" << words.source
              << "\", \"bytes\": " << std::filesystem::file_size(store->file)
              << ", \"records\": " << delivered.records() << ", \"delivered\": " << delivered.bytes
              << ", \"contestants\": ";
    writeJSON(everybody, std::cout);
    std::cout << "}\n";
}

int run(int argc, char* argv[]) {
    Words words;
    CLI::App app(description);
    readWords(app, words);
    CLI11_PARSE(app, argc, argv);
    compare(words);
    return std::cout.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace Rellinor::Benchmarks

int main(int argc, char* argv[]) {
    try {
        return Rellinor::Benchmarks::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "rellinor-compare: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
