#pragma once

#include <string>
#include <vector>

#include "Tests/Support/Database.hpp"
#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// The rows that a query gives, up to an error, read on a connection of its own.
[[nodiscard]] std::vector<Values> referenceSelect(const std::string& path,
                                                  const std::string& query);

/// Whether a file is a database with a schema in which SQLite itself finds nothing wrong, nothing
/// computes when it is read, and no function is called. Of a damaged one SQLite may read something
/// else each time; what computes may go on for ever here, and an import gives it up.
[[nodiscard]] bool isSoundDatabase(const std::string& path);

/// What the import of Chrome's database at `path` gives, told step by step.
[[nodiscard]] Outcome referenceChromeImport(const std::string& path);

/// What the import of a profile whose "signons.sqlite" lies at `path` gives, told step by step.
[[nodiscard]] Outcome referenceSignonsImport(const std::string& path);

/// The Base64 text of some bytes, bit by bit.
[[nodiscard]] std::string referenceBase64(const std::string& bytes);

} // namespace Rellinor::Tests
