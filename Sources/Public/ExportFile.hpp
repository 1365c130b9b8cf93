#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <Rellinor/Export.hpp>
#include <Rellinor/URL.hpp>

namespace Rellinor {

/// What is read: a file or folder, or bytes that the host has read itself.
class RELLINOR_PUBLIC ExportFile {
public:
    /// The file or folder at a URL.
    explicit(false) ExportFile(URL url);

    /// The file or folder at a URL.
    [[nodiscard]] static ExportFile atPath(URL url);

    /// The file or folder at a path, as `URL::fileURLWithPath` takes the path.
    ///
    /// @throws std::filesystem::filesystem_error  `path` is relative and there is no current folder
    [[nodiscard]] static ExportFile atPath(std::string_view path);

    /// The contents of a single file, for a host that may not open files. No folder can be read so;
    /// a database is read as if nothing lay beside it.
    ///
    /// @param bytes  are not changed, and need to live no longer than the calls that are given this
    /// @param name   of the file, for `detect`; may be empty
    [[nodiscard]] static ExportFile inMemory(std::span<const char> bytes, std::string_view name);

    /// The path, or the name of what is in memory.
    [[nodiscard]] std::string_view name() const noexcept;

    /// Where the file or folder is; absent for what is in memory.
    [[nodiscard]] const std::optional<URL>& url() const noexcept { return _url; }

    /// The bytes in memory; none for a file or folder.
    [[nodiscard]] std::span<const char> bytes() const noexcept { return _bytes; }

private:
    ExportFile() = default;

    std::optional<URL> _url;
    std::string _nameInMemory;
    std::span<const char> _bytes;
};

} // namespace Rellinor
