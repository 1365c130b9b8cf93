#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Rellinor::Tests {

/// An empty folder that goes away, with all that is in it, at the end of its scope.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return _path; }

    /// Writes a file; returns its path.
    std::string file(std::string_view name, std::string_view contents) const;

    /// The path of something in the folder, which need not exist.
    [[nodiscard]] std::string operator/(std::string_view name) const;

private:
    std::filesystem::path _path;
};

/// The bytes of a file.
[[nodiscard]] std::string contentsOf(const std::filesystem::path& file);

} // namespace Rellinor::Tests
