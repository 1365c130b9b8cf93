#include "Private/Proxies/SQLiteSnapshotFileSystem.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

#include <sqlite3.h>

namespace Rellinor {

namespace {

// What SQLite calls has the types that SQLite says.
// NOLINTBEGIN(*-easily-swappable-parameters,*-non-const-parameter,*-owning-memory)

/// The database as SQLite opens it.
struct OpenedDatabase {
    ::sqlite3_file file; // the first member, which SQLite knows alone
    std::span<char> bytes;
};

std::span<char> bytesOf(::sqlite3_file* file) noexcept {
    return reinterpret_cast<OpenedDatabase*>(file)->bytes; // NOLINT(*-reinterpret-cast)
}

/// What there is of so many bytes from a place on.
std::span<char> bytesAt(::sqlite3_file* file, int size, ::sqlite3_int64 place) noexcept {
    const std::span<char> bytes = bytesOf(file);
    if (size < 0 || place < 0 || std::cmp_greater_equal(place, bytes.size())) {
        return {};
    }
    const auto rest = bytes.subspan(static_cast<std::size_t>(place));
    return rest.first(std::min(rest.size(), static_cast<std::size_t>(size)));
}

int close(::sqlite3_file* /*file*/) noexcept {
    return SQLITE_OK;
}

int read(::sqlite3_file* file, void* target, int size, ::sqlite3_int64 place) noexcept {
    const std::span<char> there = bytesAt(file, size, place);
    const std::span whole(static_cast<char*>(target), static_cast<std::size_t>(size));
    std::ranges::fill(std::ranges::copy(there, whole.begin()).out, whole.end(), '\0');
    return there.size() == whole.size() ? SQLITE_OK : SQLITE_IOERR_SHORT_READ;
}

int write(::sqlite3_file* /*file*/, const void* /*bytes*/, int /*size*/,
          ::sqlite3_int64 /*place*/) noexcept {
    return SQLITE_READONLY;
}

int truncate(::sqlite3_file* /*file*/, ::sqlite3_int64 /*size*/) noexcept {
    return SQLITE_READONLY;
}

int doNothing(::sqlite3_file* /*file*/, int /*how*/) noexcept {
    return SQLITE_OK;
}

int fileSize(::sqlite3_file* file, ::sqlite3_int64* size) noexcept {
    *size = static_cast<::sqlite3_int64>(bytesOf(file).size());
    return SQLITE_OK;
}

int checkReservedLock(::sqlite3_file* /*file*/, int* isLocked) noexcept {
    *isLocked = 0;
    return SQLITE_OK;
}

int fileControl(::sqlite3_file* /*file*/, int /*operation*/, void* /*argument*/) noexcept {
    return SQLITE_NOTFOUND;
}

int nothing(::sqlite3_file* /*file*/) noexcept {
    return 0;
}

int fetch(::sqlite3_file* file, ::sqlite3_int64 place, int size, void** page) noexcept {
    const std::span<char> there = bytesAt(file, size, place);
    *page = std::cmp_equal(there.size(), size) ? there.data() : nullptr;
    return SQLITE_OK;
}

int unfetch(::sqlite3_file* /*file*/, ::sqlite3_int64 /*place*/, void* /*page*/) noexcept {
    return SQLITE_OK;
}

constexpr ::sqlite3_io_methods methods{.iVersion = 3,
                                       .xClose = &close,
                                       .xRead = &read,
                                       .xWrite = &write,
                                       .xTruncate = &truncate,
                                       .xSync = &doNothing,
                                       .xFileSize = &fileSize,
                                       .xLock = &doNothing,
                                       .xUnlock = &doNothing,
                                       .xCheckReservedLock = &checkReservedLock,
                                       .xFileControl = &fileControl,
                                       .xSectorSize = &nothing,
                                       .xDeviceCharacteristics = &nothing,
                                       .xShmMap = nullptr,
                                       .xShmLock = nullptr,
                                       .xShmBarrier = nullptr,
                                       .xShmUnmap = nullptr,
                                       .xFetch = &fetch,
                                       .xUnfetch = &unfetch};

int open(::sqlite3_vfs* system, const char* /*name*/, ::sqlite3_file* file, int flags,
         int* flagsThen) noexcept {
    file->pMethods = nullptr;
    if ((flags & SQLITE_OPEN_MAIN_DB) == 0) {
        return SQLITE_CANTOPEN;
    }
    const auto& database = *static_cast<const std::span<char>*>(system->pAppData);
    new (file) OpenedDatabase{.file = {.pMethods = &methods}, .bytes = database};
    if (flagsThen != nullptr) {
        *flagsThen = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READONLY;
    }
    return SQLITE_OK;
}

int remove(::sqlite3_vfs* /*system*/, const char* /*name*/, int /*syncs*/) noexcept {
    return SQLITE_READONLY;
}

int access(::sqlite3_vfs* /*system*/, const char* /*name*/, int /*how*/, int* isThere) noexcept {
    *isThere = 0; // asked for what may lie beside the database
    return SQLITE_OK;
}

int fullPath(::sqlite3_vfs* /*system*/, const char* name, int size, char* path) noexcept {
    const std::string_view text(name);
    if (std::cmp_greater_equal(text.size(), size)) {
        return SQLITE_CANTOPEN;
    }
    *std::ranges::copy(text, path).out = '\0';
    return SQLITE_OK;
}

// What has nothing to do with files is left to the file system that there is without this.

int randomness(::sqlite3_vfs* /*system*/, int size, char* target) noexcept {
    ::sqlite3_vfs* const other = ::sqlite3_vfs_find(nullptr);
    return other->xRandomness(other, size, target);
}

int sleep(::sqlite3_vfs* /*system*/, int microseconds) noexcept {
    ::sqlite3_vfs* const other = ::sqlite3_vfs_find(nullptr);
    return other->xSleep(other, microseconds);
}

int currentTime(::sqlite3_vfs* /*system*/, double* days) noexcept {
    ::sqlite3_vfs* const other = ::sqlite3_vfs_find(nullptr);
    return other->xCurrentTime(other, days);
}

int lastError(::sqlite3_vfs* /*system*/, int /*size*/, char* /*text*/) noexcept {
    return 0;
}

// NOLINTEND(*-easily-swappable-parameters,*-non-const-parameter,*-owning-memory)

} // namespace

SQLiteSnapshotFileSystem::SQLiteSnapshotFileSystem(std::span<char> database)
    : _database(database), _system(std::make_unique<::sqlite3_vfs>()) {
    constexpr std::string_view beginning = "rellinor-";
    constexpr int base = 16;

    char* const end = std::ranges::copy(beginning, _name.begin()).out;
    const auto address = reinterpret_cast<std::uintptr_t>(this); // NOLINT(*-reinterpret-cast)
    std::to_chars(end, _name.data() + _name.size() - 1, address, base);
    _system->iVersion = 1;
    _system->szOsFile = sizeof(OpenedDatabase);
    _system->mxPathname = 64;
    _system->zName = _name.data();
    _system->pAppData = &_database;
    _system->xOpen = &Rellinor::open;
    _system->xDelete = &remove;
    _system->xAccess = &access;
    _system->xFullPathname = &fullPath;
    _system->xRandomness = &randomness;
    _system->xSleep = &sleep;
    _system->xCurrentTime = &currentTime;
    _system->xGetLastError = &lastError;
    constexpr int isDefault = 0;
    if (::sqlite3_vfs_register(_system.get(), isDefault) != SQLITE_OK) {
        throw std::bad_alloc();
    }
}

SQLiteSnapshotFileSystem::~SQLiteSnapshotFileSystem() {
    ::sqlite3_vfs_unregister(_system.get());
}

int SQLiteSnapshotFileSystem::open(::sqlite3*& connection) const noexcept {
    return ::sqlite3_open_v2("database", &connection, SQLITE_OPEN_READWRITE, _name.data());
}

} // namespace Rellinor
