#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Rellinor::Benchmarks {

/// The path of a file that goes away with it, as do those that SQLite puts beside it.
class TemporaryFile {
public:
    /// There is no file yet.
    TemporaryFile();

    /// The file has these contents.
    explicit TemporaryFile(std::string_view contents);

    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return _path; }

private:
    std::filesystem::path _path;
};

} // namespace Rellinor::Benchmarks
