#include "Tests/Support/SQLiteCalls.hpp"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sqlite3.h>

namespace Rellinor::Tests {

namespace {

static_assert(sizeof(off_t) == 8, "it is what SQLite passes too");

// NOLINTBEGIN(*-avoid-non-const-global-variables)
SQLiteCalls* current = nullptr;

// What the system does; null for what this SQLite has no use for.
int (*systemOpen)(const char*, int, int) = nullptr;
ssize_t (*systemRead)(int, void*, std::size_t, off_t) = nullptr;
ssize_t (*systemWrite)(int, const void*, std::size_t) = nullptr;
ssize_t (*systemWriteAt)(int, const void*, std::size_t, off_t) = nullptr;
int (*systemTruncate)(int, off_t) = nullptr;
int (*systemAllocate)(int, off_t, off_t) = nullptr;
int (*systemUnlink)(const char*) = nullptr;
int (*systemMakeFolder)(const char*, mode_t) = nullptr;
int (*systemRemoveFolder)(const char*) = nullptr;

// NOLINTEND(*-avoid-non-const-global-variables)

std::string pathOf(int descriptor) {
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored);
}

void add(const char* call, std::string path) {
    if (current != nullptr) {
        current->add({call, std::move(path)});
    }
}

int openInstead(const char* path, int flags, int mode) {
    std::error_code ignored;
    const bool isThere = std::filesystem::exists(path, ignored);
    if ((flags & O_TRUNC) != 0 || ((flags & O_CREAT) != 0 && !isThere)) {
        add("open", path);
    }
    return systemOpen(path, flags, mode);
}

ssize_t readInstead(int descriptor, void* target, std::size_t size, off_t place) {
    // Without it meanwhile, so that a test may use SQLite itself.
    SQLiteCalls* const calls = std::exchange(current, nullptr);
    const ssize_t result = calls != nullptr && calls->read
                               ? calls->read(descriptor, target, size, place)
                               : systemRead(descriptor, target, size, place);
    current = calls;
    return result;
}

ssize_t writeInstead(int descriptor, const void* source, std::size_t size) {
    add("write", pathOf(descriptor));
    return systemWrite(descriptor, source, size);
}

ssize_t writeAtInstead(int descriptor, const void* source, std::size_t size, off_t place) {
    add("pwrite", pathOf(descriptor));
    return systemWriteAt(descriptor, source, size, place);
}

int truncateInstead(int descriptor, off_t size) {
    add("ftruncate", pathOf(descriptor));
    return systemTruncate(descriptor, size);
}

int allocateInstead(int descriptor, off_t place, off_t size) {
    add("fallocate", pathOf(descriptor));
    return systemAllocate(descriptor, place, size);
}

int unlinkInstead(const char* path) {
    add("unlink", path);
    return systemUnlink(path);
}

int makeFolderInstead(const char* path, mode_t mode) {
    add("mkdir", path);
    return systemMakeFolder(path, mode);
}

int removeFolderInstead(const char* path) {
    add("rmdir", path);
    return systemRemoveFolder(path);
}

/// Whether this SQLite makes a call under this name; then it makes another instead.
template <typename Result, typename... Arguments>
bool replace(const char* name, Result (*&system)(Arguments...), Result (*instead)(Arguments...)) {
    ::sqlite3_vfs* const vfs = ::sqlite3_vfs_find(nullptr);
    const ::sqlite3_syscall_ptr call = vfs->xGetSystemCall(vfs, name);
    if (call == nullptr) {
        return false;
    }
    system = reinterpret_cast<Result (*)(Arguments...)>(call);
    return vfs->xSetSystemCall(vfs, name, reinterpret_cast<::sqlite3_syscall_ptr>(instead)) ==
           SQLITE_OK;
}

bool replaceAll() {
    // Of two names for a call, SQLite has that which it was built with.
    const bool reads =
        replace("pread64", systemRead, &readInstead) || replace("pread", systemRead, &readInstead);
    const bool writes = replace("pwrite64", systemWriteAt, &writeAtInstead) ||
                        replace("pwrite", systemWriteAt, &writeAtInstead);
    (void)replace("fallocate", systemAllocate, &allocateInstead);
    return reads && writes && replace("open", systemOpen, &openInstead) &&
           replace("write", systemWrite, &writeInstead) &&
           replace("ftruncate", systemTruncate, &truncateInstead) &&
           replace("unlink", systemUnlink, &unlinkInstead) &&
           replace("mkdir", systemMakeFolder, &makeFolderInstead) &&
           replace("rmdir", systemRemoveFolder, &removeFolderInstead);
}

} // namespace

std::ostream& operator<<(std::ostream& out, const FileChange& change) {
    return out << change.call << ' ' << change.path;
}

SQLiteCalls::SQLiteCalls() {
    (void)::sqlite3_initialize();
    if (current != nullptr || !replaceAll()) {
        std::abort();
    }
    current = this;
}

SQLiteCalls::~SQLiteCalls() {
    current = nullptr;
    ::sqlite3_vfs* const vfs = ::sqlite3_vfs_find(nullptr);
    (void)vfs->xSetSystemCall(vfs, nullptr, nullptr); // all of them
}

ssize_t readForSQLite(int descriptor, void* target, std::size_t size, off_t place) {
    return systemRead(descriptor, target, size, place);
}

} // namespace Rellinor::Tests
