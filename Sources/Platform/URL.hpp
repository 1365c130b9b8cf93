#pragma once

#include <string>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// Where a file or folder is.
class RELLINOR_PUBLIC URL {
public:
    /// The location of the file or folder at `path`, which need not exist.
    ///
    /// A relative path is taken from the current folder at the time of the call. Nothing is looked
    /// up, resolved or shortened: "." and "..", links and repeated slashes stay as they are.
    ///
    /// @throws std::filesystem::filesystem_error  `path` is relative and there is no current folder
    [[nodiscard]] static URL fileURLWithPath(std::string_view path);

    /// The location of what is named `component` in this folder. A slash is put between the two
    /// unless there is one already; `component` itself is taken as it stands.
    [[nodiscard]] URL appendingPathComponent(std::string_view component) const;

    /// This location with a point and `extension` at the end of its path, before a trailing slash.
    [[nodiscard]] URL appendingPathExtension(std::string_view extension) const;

    /// The path, decoded, without a trailing slash (but "/" stays).
    [[nodiscard]] std::string_view path() const noexcept;

    /// The URL as a text, for example "file:///Users/ann/a%20b.csv". Every byte of the path except
    /// ASCII letters, digits and `! $ & ' ( ) * + , - . / : = @ _ ~` is percent-encoded.
    [[nodiscard]] std::string absoluteString() const;

private:
    explicit URL(std::string path) noexcept;

    std::string _path;
};

} // namespace Rellinor
