#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// A blob.
using Bytes = std::vector<char>;

/// What a column holds in a row: nothing, an integer, a number, a text or a blob.
using DatabaseValue = std::variant<std::monostate, std::int64_t, float, std::string, Bytes>;

using DatabaseRow = std::map<std::string, DatabaseValue>;

/// The rows that a query gives, up to an error, read on a connection of its own.
[[nodiscard]] std::vector<DatabaseRow> referenceSelect(const std::string& path,
                                                       const std::string& query);

/// Whether a file is a database with a schema in which SQLite itself finds nothing wrong, nothing
/// computes when it is read, and no function is called. Of a damaged one SQLite may read something
/// else each time; what computes, an import refuses where it is in the way, and a schema that is
/// far larger than a browser's.
[[nodiscard]] bool isSoundDatabase(const std::string& path);

/// What the import of Chrome's database at `path` gives, told step by step.
[[nodiscard]] Outcome referenceChromeImport(const std::string& path);

/// What the import of a profile whose "signons.sqlite" lies at `path` gives, told step by step.
[[nodiscard]] Outcome referenceSignonsImport(const std::string& path);

/// The Base64 text of some bytes, bit by bit.
[[nodiscard]] std::string referenceBase64(const Bytes& bytes);

} // namespace Rellinor::Tests
