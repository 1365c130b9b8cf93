#include "Tests/Support/Files.hpp"

#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

Files filesIn(const std::filesystem::path& folder) {
    Files files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files[entry.path().filename()] = contentsOf(entry.path());
    }
    return files;
}

bool areReadOnly(const Files& before, const Files& after) {
    Files expected = before;
    for (const auto& [name, bytes] : after) {
        if (name.ends_with("-shm")) {
            expected[name] = bytes;
        }
        if (name.ends_with("-wal") && bytes.empty()) {
            expected.try_emplace(name);
        }
    }
    return expected == after;
}

} // namespace Rellinor::Tests
