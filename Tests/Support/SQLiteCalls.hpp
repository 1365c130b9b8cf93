#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace Rellinor::Tests {

/// A change of what a file holds, or of what there is in a folder.
struct FileChange {
    std::string call; ///< the system's name for what makes it
    std::string path;

    bool operator==(const FileChange&) const = default;
};

std::ostream& operator<<(std::ostream& out, const FileChange& change);

/// What the calls of the operating system that SQLite makes do instead, for a scope, and the
/// changes that it asks for meanwhile. The linker does not get at them: SQLite looks them up in a
/// table of its own. There is one at a time.
class SQLiteCalls {
public:
    /// Reads from a place of a file; as always if there is no function.
    std::function<ssize_t(int descriptor, void* target, std::size_t size, off_t place)> read;

    SQLiteCalls();
    ~SQLiteCalls();
    SQLiteCalls(const SQLiteCalls&) = delete;
    SQLiteCalls& operator=(const SQLiteCalls&) = delete;

    /// What was to be changed, whether or not the system did it, in this order. A file that is
    /// opened is changed only if it was not there or is emptied.
    [[nodiscard]] const std::vector<FileChange>& changes() const { return _changes; }

    /// Used by the calls themselves.
    void add(FileChange change) { _changes.push_back(std::move(change)); }

private:
    std::vector<FileChange> _changes;
};

/// What the system itself does for SQLite.
ssize_t readForSQLite(int descriptor, void* target, std::size_t size, off_t place);

} // namespace Rellinor::Tests
