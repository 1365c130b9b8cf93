#include "Private/Proxies/SQLiteFileProxy.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <vector>

#include <sqlite3.h>

#include "Platform/Fault.hpp"
#include "Platform/File.hpp"
#include "Private/Proxies/SQLiteGuard.hpp"
#include "Private/Proxies/SQLiteSideFiles.hpp"
#include "Private/Proxies/SQLiteSnapshotFileSystem.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

/// SQLite says that there is no memory for a value. A type of this file alone would need a variable
/// to be caught by.
struct NoMemoryForValue {};

namespace {

/// A pointer that is there unless SQLite has no memory.
template <typename Character>
const Character* present(const Character* pointer, ::sqlite3_stmt* statement) {
    if (pointer == nullptr) {
        require(::sqlite3_errcode(::sqlite3_db_handle(statement)) == SQLITE_NOMEM);
        throw NoMemoryForValue();
    }
    return pointer;
}

std::string_view nameOf(::sqlite3_stmt* statement, int column) {
    return present(::sqlite3_column_name(statement, column), statement);
}

std::vector<std::string_view> namesOf(::sqlite3_stmt* statement, int count, ImportMemory& memory) {
    std::vector<std::string_view> names;
    names.reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column) {
        names.push_back(memory.copy(nameOf(statement, column)));
    }
    return names;
}

/// A text as the database has it, made UTF-8.
std::string_view textOf(::sqlite3_stmt* statement, int column, SQLiteFaithfulness faithfulness,
                        ImportMemory& memory) {
    const void* const bytes = present(::sqlite3_column_text(statement, column), statement);
    const auto* const characters = static_cast<const char*>(bytes);
    // Quirk: a text ends at its first NUL.
    std::string_view text = characters;
    if (faithfulness == SQLiteFaithfulness::whole) {
        text = {characters, static_cast<std::size_t>(::sqlite3_column_bytes(statement, column))};
    }
    if (isUTF8(text)) {
        return memory.copy(text);
    }
    const std::span<char> repaired = memory.allocate(sizeOfRepairedText(text));
    writeRepairedText(text, repaired);
    return {repaired.data(), repaired.size()};
}

SQLiteValue blobOf(::sqlite3_stmt* statement, int column, SQLiteFaithfulness faithfulness,
                   ImportMemory& memory) {
    const int size = ::sqlite3_column_bytes(statement, column);
    if (size == 0 && faithfulness == SQLiteFaithfulness::whole) {
        return SQLiteValue(std::span<const char>());
    }
    const auto* const bytes = static_cast<const char*>(::sqlite3_column_blob(statement, column));
    if (bytes == nullptr) {
        // If memory ran out, the next step says so.
        return {}; // Quirk: an empty blob is an absent value.
    }
    const std::string_view copy = memory.copy({bytes, static_cast<std::size_t>(size)});
    return SQLiteValue(std::span(copy));
}

SQLiteValue valueOf(::sqlite3_stmt* statement, int column, SQLiteFaithfulness faithfulness,
                    ImportMemory& memory) {
    const bool isNarrowed = faithfulness == SQLiteFaithfulness::narrowed;
    switch (::sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: {
        const std::int64_t integer = ::sqlite3_column_int64(statement, column);
        // Quirk: an integer keeps its low 32 bits alone.
        return SQLiteValue(isNarrowed ? static_cast<std::int32_t>(integer) : integer);
    }
    case SQLITE_FLOAT: {
        const double number = ::sqlite3_column_double(statement, column);
        // Quirk: a floating-point number is narrowed to 32 bits.
        return SQLiteValue(isNarrowed ? static_cast<double>(static_cast<float>(number)) : number);
    }
    case SQLITE_TEXT:
        return SQLiteValue(textOf(statement, column, faithfulness, memory));
    case SQLITE_BLOB:
        return blobOf(statement, column, faithfulness, memory);
    default:
        return {};
    }
}

/// Closes a connection.
struct Closer {
    // Only the deferred close bears a statement that is never finalized.
    void operator()(::sqlite3* connection) const noexcept {
        ::sqlite3_db_release_memory(connection);
        ::sqlite3_close_v2(connection);
    }
};

using Statement = std::unique_ptr<::sqlite3_stmt, decltype(&::sqlite3_finalize)>;

} // namespace

SQLiteRows SQLiteFileProxy::select(std::string_view query) {
    SQLiteRows rows(_memory);
    _ending = _snapshot != nullptr ? readSnapshot(query, rows) : readInPlace(query, rows);
    return rows;
}

SQLiteEnding SQLiteFileProxy::readInPlace(std::string_view query, SQLiteRows& rows) {
    if (_pathToDatabase.contains('\0')) {
        return SQLiteEnding::notOpened; // cut at its NUL, the path would name another file
    }
    // SQLite would open a device too: a terminal could become that of the process.
    if (kindOfFile(_pathToDatabase) == FileKind::other) {
        return SQLiteEnding::notOpened;
    }
    const int opened = ::sqlite3_open(_pathToDatabase.c_str(), &_dbp);
    if (opened == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    if (opened != SQLITE_OK || _dbp == nullptr) {
        return SQLiteEnding::notOpened; // Quirk: the handle of a failed open is not closed.
    }
    const std::unique_ptr<::sqlite3, Closer> connection(_dbp); // closed at the end
    const auto size = sizeOfDatabase(*_dbp);
    return size ? read(query, *size, rows) : SQLiteEnding::refused;
}

SQLiteEnding SQLiteFileProxy::readSnapshot(std::string_view query, SQLiteRows& rows) {
    const SQLiteSnapshotFileSystem system(_snapshot->bytes());
    const int opened = system.open(_dbp);
    const std::unique_ptr<::sqlite3, Closer> connection(_dbp);
    if (opened != SQLITE_OK) {
        throw std::bad_alloc(); // there is no other reason
    }
    return read(query, static_cast<std::int64_t>(_snapshot->sizeOfFiles()), rows);
}

SQLiteEnding SQLiteFileProxy::read(std::string_view query, std::int64_t size, SQLiteRows& rows) {
    SQLiteGuard guard(*_dbp, size);
    const SQLiteEnding ending = read(preparedPartOf(query), guard, rows);
    return guard.hasRefused() ? SQLiteEnding::refused : ending;
}

SQLiteEnding SQLiteFileProxy::read(std::string_view query, SQLiteGuard& guard, SQLiteRows& rows) {
    if (!guard.allowsSchema()) {
        return endingOf(*_dbp, ::sqlite3_errcode(_dbp), SQLiteEnding::damaged);
    }
    keepLittle();
    if (!guard.allowsStatement(query)) {
        return SQLiteEnding::refused;
    }
    ::sqlite3_stmt* statement = nullptr;
    if (prepareStatement(query, statement)) {
        require(statement != nullptr);
        // Quirk: the statement is never finalized.
        const Statement ofSnapshot(_snapshot != nullptr ? statement : nullptr, &::sqlite3_finalize);
        return endingOf(*_dbp, step(query, statement, guard, rows), SQLiteEnding::damaged);
    }
    const int code = ::sqlite3_errcode(_dbp);
    if (code == SQLITE_NOMEM) {
        guard.requireMemory(codeAtRow(0, query));
        return SQLiteEnding::refused; // its program would be too long
    }
    return endingOf(*_dbp, code, SQLiteEnding::notPrepared);
}

int SQLiteFileProxy::step(std::string_view query, ::sqlite3_stmt* statement, SQLiteGuard& guard,
                          SQLiteRows& rows) {
    // A statement that is not at its end keeps the database locked, so it is always brought there.
    const auto end = [&] {
        ::sqlite3_interrupt(_dbp);
        (void)::sqlite3_step(statement);
    };
    int code = SQLITE_OK;
    try {
        for (code = ::sqlite3_step(statement); code == SQLITE_ROW;
             code = ::sqlite3_step(statement)) {
            mapColumns(statement, rows);
            if (!guard.allowsRow(_row)) {
                ::sqlite3_interrupt(_dbp);
            }
        }
    } catch (const NoMemoryForValue&) {
        end();
        code = SQLITE_NOMEM;
    } catch (...) {
        end();
        throw;
    }
    if (code == SQLITE_NOMEM) {
        guard.allowSecondTry();
        guard.requireMemory(codeAtRow(rows.size(), query));
    }
    return code;
}

int SQLiteFileProxy::codeAtRow(std::size_t row, std::string_view query) {
    ::sqlite3_stmt* prepared = nullptr;
    if (!prepareStatement(query, prepared)) {
        return ::sqlite3_errcode(_dbp);
    }
    const Statement statement(prepared, &::sqlite3_finalize);
    for (std::size_t index = 0; index < row; ++index) {
        if (::sqlite3_step(prepared) != SQLITE_ROW) {
            return SQLITE_ERROR; // whatever it is, there was none before
        }
    }
    const int code = ::sqlite3_step(prepared);
    if (code != SQLITE_ROW) {
        return code;
    }
    try {
        SQLiteRows ignored(_memory);
        mapColumns(prepared, ignored);
    } catch (const NoMemoryForValue&) {
        return SQLITE_NOMEM;
    }
    return SQLITE_OK;
}

void SQLiteFileProxy::keepLittle() const {
    // The pages of a snapshot are read where they stand.
    const char* const pragmas =
        _snapshot != nullptr
            ? "PRAGMA cache_size = 8; PRAGMA temp_store = MEMORY; PRAGMA mmap_size = "
              "281474976710656"
            : "PRAGMA cache_size = 8; PRAGMA temp_store = MEMORY; PRAGMA mmap_size = 0";
    // Where that fails for another reason, the database cannot be read either.
    if (::sqlite3_exec(_dbp, pragmas, nullptr, nullptr, nullptr) == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
}

std::string_view SQLiteFileProxy::preparedPartOf(std::string_view query) const noexcept {
    // Quirk: the query is cut short by the difference of bytes and characters.
    const bool isCut = _faithfulness == SQLiteFaithfulness::narrowed;
    const std::string_view part = query.substr(0, isCut ? numberOfCharacters(query) : query.size());
    require(part.size() <= std::size_t{std::numeric_limits<int>::max()});
    return part;
}

bool SQLiteFileProxy::prepareStatement(std::string_view query,
                                       ::sqlite3_stmt*& statement) const noexcept {
    const char* tail = nullptr;
    return ::sqlite3_prepare_v2(_dbp, query.data(), static_cast<int>(query.size()), &statement,
                                &tail) == SQLITE_OK;
}

void SQLiteFileProxy::mapColumns(::sqlite3_stmt* statement, SQLiteRows& rows) {
    const int count = ::sqlite3_column_count(statement);
    require(count >= 0);
    if (rows.size() == 0) {
        rows.nameColumns(namesOf(statement, count, _memory));
    }
    _row.clear();
    for (int column = 0; column < count; ++column) {
        _row.push_back(valueOf(statement, column, _faithfulness, _memory));
    }
    rows.append(_row);
}

} // namespace Rellinor
