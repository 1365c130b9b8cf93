#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Rellinor/Models/ImportSource.hpp>

#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

/// A login database as a set of files, to be damaged before it is read.
struct LoginDatabase {
    std::string_view name;
    ImportSource source;
    std::string_view fileName; ///< of the database
    /// What its name ends with and what it holds, for each file: the database itself, and what
    /// stands beside it.
    std::vector<std::pair<std::string, std::string>> files;

    /// Whether changes of it were broken off, which SQLite rolls back.
    [[nodiscard]] bool isBrokenOff() const;

    /// How many bytes all of the files have.
    [[nodiscard]] std::size_t size() const;

    /// Turns a bit over, counted through all of the files.
    void flip(std::size_t bit);

    /// Writes the files into a folder; returns what is to be imported.
    [[nodiscard]] std::string writtenTo(const TemporaryFolder& folder) const;

    /// Where the database stands in that folder.
    [[nodiscard]] std::string pathIn(const TemporaryFolder& folder) const;
};

/// Databases of both browsers with all that there is in a file: indexes, texts that go over pages,
/// pages that are free, other encodings, logs and broken-off changes.
[[nodiscard]] std::vector<LoginDatabase> loginDatabases();

/// Whether an import gave logins alone, and these are the first ones of another.
[[nodiscard]] bool isBeginningOf(
    const Outcome& part, const Outcome& whole,
    const std::function<bool(const Password&, const Password&)>& isSame = std::equal_to());

} // namespace Rellinor::Tests
