#pragma once

#include <string>
#include <string_view>

#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Fuzzers {

/// A file in a temporary folder, of which each input in turn is the contents.
class InputFile {
public:
    /// @param name  of the file
    explicit InputFile(std::string_view name);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Puts these bytes in place of what the file holds.
    void write(std::string_view contents) const;

    /// Expects the file to hold these bytes still.
    void expectUnchanged(std::string_view contents) const;

    [[nodiscard]] const std::string& path() const { return _path; }

    /// The path of the folder that it lies in.
    [[nodiscard]] const std::string& folder() const { return _folder.path().native(); }

private:
    Tests::TemporaryFolder _folder;
    std::string _path;
    int _descriptor;
};

/// A file that is a database, beside which SQLite may leave others.
class InputDatabase {
public:
    explicit InputDatabase(std::string_view name) : _file(name) {}

    /// Puts these bytes in place of the database, and removes what lies beside it.
    void write(std::string_view contents) const;

    /// Expects the database to hold these bytes still, whatever lies beside it now.
    void expectUnchanged(std::string_view contents) const { _file.expectUnchanged(contents); }

    [[nodiscard]] const std::string& path() const { return _file.path(); }

    [[nodiscard]] const std::string& folder() const { return _file.folder(); }

private:
    InputFile _file;
};

} // namespace Rellinor::Fuzzers
