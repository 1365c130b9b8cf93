// Writes a store of invented data: rellinor-generate STORE RECORDS PATH [SEED]

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Benchmarks/DashlaneGenerator.hpp"
#include "Benchmarks/DatabaseGenerator.hpp"
#include "Benchmarks/FirefoxGenerator.hpp"
#include "Benchmarks/KeePassGenerator.hpp"
#include "Benchmarks/LastPassGenerator.hpp"
#include "Benchmarks/OnePasswordGenerator.hpp"
#include "Benchmarks/TirelGenerator.hpp"

namespace Rellinor::Benchmarks {

namespace {

constexpr std::string_view usage =
    "usage: rellinor-generate STORE RECORDS PATH [SEED]\n"
    "\n"
    "Writes a store of invented data to PATH. STORE is one of chrome, dashlane, firefox,\n"
    "firefoxSignons, keePass, keePassXC, lastPass, onePassword and tirel. The two of Firefox "
    "write\n"
    "logins.json or signons.sqlite into the folder PATH.\n";

struct Store {
    std::string_view name;
    void (*write)(const std::filesystem::path& path, std::size_t records, std::uint64_t seed);
};

void writeFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        throw std::runtime_error("the file cannot be written");
    }
}

template <std::string (*text)(std::size_t, std::uint64_t)>
void writeText(const std::filesystem::path& path, std::size_t records, std::uint64_t seed) {
    writeFile(path, text(records, seed));
}

void writeLogins(const std::filesystem::path& path, std::size_t records, std::uint64_t seed) {
    std::filesystem::create_directories(path);
    writeFile(path / "logins.json", firefoxLogins(records, seed));
}

void writeSignons(const std::filesystem::path& path, std::size_t records, std::uint64_t seed) {
    std::filesystem::create_directories(path);
    makeFirefoxDatabase(path / "signons.sqlite", records, seed);
}

constexpr std::array<Store, 9> stores = {{
    {"chrome", makeChromeDatabase},
    {"dashlane", writeText<dashlaneExport>},
    {"firefox", writeLogins},
    {"firefoxSignons", writeSignons},
    {"keePass", writeText<keePassExport>},
    {"keePassXC", writeText<keePassXCExport>},
    {"lastPass", writeText<lastPassExport>},
    {"onePassword", writeText<onePasswordExport>},
    {"tirel", writeText<tirelExport>},
}};

int generate(std::span<char* const> arguments) {
    const auto* const store =
        arguments.size() < 4 || arguments.size() > 5
            ? stores.end()
            : std::ranges::find(stores, std::string_view(arguments[1]), &Store::name);
    if (store == stores.end()) {
        std::cerr << usage;
        return 2;
    }
    const std::uint64_t seed = arguments.size() == 5 ? std::stoull(arguments[4]) : 1;
    store->write(arguments[3], std::stoull(arguments[2]), seed);
    return EXIT_SUCCESS;
}

} // namespace

} // namespace Rellinor::Benchmarks

int main(int argc, char* argv[]) {
    try {
        return Rellinor::Benchmarks::generate({argv, static_cast<std::size_t>(argc)});
    } catch (const std::exception& error) {
        std::cerr << "rellinor-generate: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
