// What the guide for hosts shows, put to use: imports a LastPass export on a thread, comes back,
// and writes what was found as a Tirel export.

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include "Examples/Guide/BackgroundImport.hpp"
#include "Examples/Guide/Secret.hpp"
#include "Examples/Guide/TirelExport.hpp"

namespace {

/// Writes a text to a file that only its owner may read.
bool write(std::string_view text, const std::filesystem::path& path) {
    using std::filesystem::perms;

    std::ofstream file(path, std::ios::binary); // nothing is in it yet
    std::error_code error;
    std::filesystem::permissions(path, perms::owner_read | perms::owner_write, error);
    return !error && file << text << std::flush;
}

} // namespace

int main(int argc, char* argv[]) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 3) {
        std::cerr << "usage: rellinor-guide LASTPASS-EXPORT TIREL-EXPORT\n";
        return 2;
    }

    std::thread thread;
    const Queue background = [&](std::function<void()> work) {
        thread = std::thread(std::move(work));
    };
    std::vector<std::function<void()>> toDo;
    const Queue main = [&](std::function<void()> work) { toDo.push_back(std::move(work)); };

    bool written = false;
    const auto onComplete = [&](const Rellinor::RecordsResult& result) {
        if (!result) {
            std::cerr << result.error().localizedDescription() << '\n';
            return;
        }
        const Secret text(tirelExport(*result));
        written = write(text.text(), arguments[2]);
    };

    importRecords(Rellinor::URL::fileURLWithPath(arguments[1]), Rellinor::ImportSource::lastPass,
                  background, main, onComplete);
    thread.join();
    for (const auto& work : toDo) {
        work();
    }
    return written ? 0 : 1;
}
