#pragma once

#include <cstddef>
#include <fstream>
#include <limits>
#include <optional>
#include <string>

namespace Rellinor::Host {

/// A file to be read from its beginning; not good if it cannot be opened.
///
/// @throws std::bad_alloc, for which a stream by itself only is not good
[[nodiscard]] std::ifstream openedFile(const std::string& path);

/// The same, from behind a byte-order mark of UTF-8 if the file begins with one.
[[nodiscard]] std::ifstream openedText(const std::string& path);

/// The bytes of a regular file, or its first `limit` bytes. Absent if there is no such file, if it
/// cannot be read, and for anything else that has a name: what comes out of a pipe is the import's.
///
/// @throws std::bad_alloc
[[nodiscard]] std::optional<std::string>
contentsOf(const std::string& path, std::size_t limit = std::numeric_limits<std::size_t>::max());

} // namespace Rellinor::Host
