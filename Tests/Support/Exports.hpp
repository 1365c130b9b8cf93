#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

/// A store or export of one source, for what is the same for all of them.
struct Export {
    std::string_view name;
    ImportSource source;
    std::string_view file;   ///< within the examples
    std::string_view member; ///< its name if the source reads the folder around it; empty otherwise
    bool isDatabase;
    Outcome unreadable; ///< what becomes of it if the file is there and cannot be read
    Outcome senseless;  ///< what becomes of a file that holds "x" alone

    /// The bytes of the example, which imports.
    [[nodiscard]] std::string bytes() const;

    /// What becomes of the example.
    [[nodiscard]] Outcome whole() const;

    /// Where in a folder the file stands that is read.
    [[nodiscard]] std::string fileIn(const TemporaryFolder& folder) const;

    /// What is to be imported for that file to be read.
    [[nodiscard]] std::string importedIn(const TemporaryFolder& folder) const;

    /// Writes that file with these bytes; returns what is to be imported.
    [[nodiscard]] std::string written(const TemporaryFolder& folder, std::string_view bytes) const;

    friend std::ostream& operator<<(std::ostream& out, const Export& item) {
        return out << item.name;
    }
};

/// The name of a test with such a parameter.
[[nodiscard]] std::string nameOf(const testing::TestParamInfo<Export>& info);

/// One for each source and each kind of store.
[[nodiscard]] std::span<const Export> allExports();

/// Those of them that are databases, and those that are not.
[[nodiscard]] std::vector<Export> allDatabases();
[[nodiscard]] std::vector<Export> allFiles();

} // namespace Rellinor::Tests
