// An import assistant: tells what a dropped file is, reads it on a thread of its own, shows what
// would arrive and what would not, and takes the records over once the person agrees.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <future>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

#include <Rellinor/Rellinor.hpp>

namespace {

using namespace std::chrono_literals;

/// Reads a file on a thread of its own.
class Reading {
public:
    explicit Reading(Rellinor::ExportFile file)
        : _imported(std::async(std::launch::async, [this, file = std::move(file)] {
              Rellinor::ReadOptions options;
              options.onProgress = [this](const Rellinor::Progress& progress) {
                  _percent = progress.total > 0 ? progress.done * 100 / progress.total : 0;
                  return !_isCancelled; // false ends the reading
              };
              return Rellinor::readExport(file, options);
          })) {}

    void cancel() { _isCancelled = true; }

    /// Waits for a moment; whether the reading has come to its end.
    [[nodiscard]] bool hasEnded() const {
        return _imported.wait_for(50ms) == std::future_status::ready;
    }

    [[nodiscard]] std::uint64_t percent() const { return _percent; }

    [[nodiscard]] Rellinor::ImportedExport take() { return _imported.get(); }

private:
    std::atomic<bool> _isCancelled = false;
    std::atomic<std::uint64_t> _percent = 0;
    std::future<Rellinor::ImportedExport> _imported; // whose end waits for the thread
};

/// Says what the file is, or why it cannot be read and what to do about that.
bool introduce(const Rellinor::Detection& found) {
    if (found.obstacle == Rellinor::FailureReason::none && found.layout) {
        std::cout << "This is a " << description(*found.layout) << ".\n";
        return true;
    }
    std::cout << (found.product.empty() ? "This file" : found.product) << ": "
              << description(found.obstacle) << ' ' << found.advice << '\n';
    return false;
}

std::string masked(std::string_view secret) {
    return secret.empty() ? "" : "********";
}

/// Shows how much there is, and the first logins.
void preview(const Rellinor::ImportedExport& imported) {
    constexpr std::size_t most = 3;
    const Rellinor::ImportedRecords& records = *imported.records;
    std::cout << records.passwords.size() << " logins, " << records.notes.size() << " notes, "
              << records.cards.size() << " cards\n";
    for (std::size_t i = 0; i < std::min(most, records.passwords.size()); ++i) {
        const Rellinor::ImportedPasswordInfoProviding& login = *records.passwords[i];
        std::cout << "  " << login.service().value_or(login.url()) << ": " << login.username()
                  << ' ' << masked(login.password());
        if (const auto extras = imported.extras.ofPassword(i); !extras.empty()) {
            std::cout << " and " << extras.size() << " details";
        }
        std::cout << '\n';
    }
}

/// Lists what will not arrive, and what should be looked at afterwards.
void warn(const Rellinor::ImportReport& report) {
    const auto tell = [&](std::string_view sentence, std::string_view field,
                          const Rellinor::Places& places) {
        std::cout << "  " << places.count << " times: " << sentence;
        if (!field.empty()) {
            std::cout << " (" << field << ')';
        }
        if (!places.first.empty()) {
            std::cout << " First in " << identifier(report.placeUnit()) << ' '
                      << places.first.front() << '.';
        }
        std::cout << '\n';
    };
    for (const Rellinor::LeftOut& left : report.leftOut()) {
        tell(description(left.reason), left.field, left.places);
    }
    for (const Rellinor::Finding& finding : report.findings()) {
        tell(description(finding.kind), finding.field, finding.places);
    }
    for (const Rellinor::Unread& unread : report.unread()) {
        std::cout << "  " << unread.count << " times: not read: " << unread.part << '\n';
    }
}

/// Where the host's own store begins. A record lives as long as anybody has a pointer to it.
void store(const Rellinor::ImportedExport& /*imported*/) {}

bool isAgreed() {
    std::cout << "Import? (y/n) " << std::flush;
    std::string answer;
    return std::getline(std::cin, answer) && answer == "y";
}

} // namespace

int main(int argc, char* argv[]) {
    const auto file = Rellinor::ExportFile::atPath(argc > 1 ? argv[1] : "export.csv");
    if (!introduce(Rellinor::detect(file))) {
        return 1;
    }

    Reading reading(file);
    while (!reading.hasEnded()) { // a window would draw itself meanwhile, and have a button
        std::cout << reading.percent() << " %\n";
        if (!std::cout) {
            reading.cancel(); // nobody looks any more
        }
    }
    const Rellinor::ImportedExport imported = reading.take();
    if (!imported.records) {
        std::cout << "Nothing was imported. " << description(imported.report.failure().reason)
                  << '\n';
        return 1;
    }

    preview(imported);
    warn(imported.report);
    if (!isAgreed()) {
        std::cout << "Nothing was imported.\n";
        return 1;
    }
    store(imported);
    std::cout << "Everything that is listed above was imported. Now delete the export: it holds "
                 "your passwords.\n";
    return 0;
}
