#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "Private/Importers/Chrome/ChromiumColumn.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/SQLiteEnding.hpp"
#include "Private/Proxies/SQLiteRows.hpp"
#include "Private/Proxies/SQLiteSnapshot.hpp"

namespace Rellinor {

/// A note of a login.
struct ChromiumNote {
    std::string_view key; ///< empty for the one that the browser shows
    SQLiteValue value;    ///< bytes, which the browser keeps encrypted
};

/// The logins of one database, with their notes.
class ChromiumDatabase {
public:
    /// Reads all rows, with whatever columns there are but for those that never arrive.
    ///
    /// @throws std::bad_alloc
    ChromiumDatabase(SQLiteSnapshot& snapshot, ImportMemory& memory);

    [[nodiscard]] const SQLiteRows& logins() const noexcept { return _logins; }

    /// What the columns of a login are, in their order.
    [[nodiscard]] std::span<const ChromiumColumn> columns() const noexcept { return _columns; }

    /// The columns that never arrive.
    [[nodiscard]] std::span<const std::string_view> unreadColumns() const noexcept {
        return _unreadColumns;
    }

    [[nodiscard]] bool hasNotes() const noexcept { return !_notes.empty(); }

    /// How many notes there are, those of no login among them.
    [[nodiscard]] std::size_t numberOfNotes() const noexcept { return _numberOfNotes; }

    /// The notes of the login with that key, in their order.
    [[nodiscard]] std::span<const ChromiumNote> notesOf(std::int64_t login) const noexcept;

    /// How the reading of the logins ended, and of the notes; the latter is complete if there is no
    /// such table.
    [[nodiscard]] SQLiteEnding endingOfLogins() const noexcept { return _endingOfLogins; }

    [[nodiscard]] SQLiteEnding endingOfNotes() const noexcept { return _endingOfNotes; }

private:
    void readNotes(SQLiteSnapshot& snapshot, ImportMemory& memory);

    SQLiteRows _logins;
    std::vector<ChromiumColumn> _columns;
    std::vector<std::string_view> _unreadColumns;
    std::map<std::int64_t, std::vector<ChromiumNote>> _notes; // by the keys of their logins
    std::size_t _numberOfNotes = 0;
    SQLiteEnding _endingOfLogins = SQLiteEnding::complete;
    SQLiteEnding _endingOfNotes = SQLiteEnding::complete;
};

/// A login as it stands in its database, which outlives it.
struct ChromiumLogin {
    SQLiteRow row;
    const ChromiumDatabase* database = nullptr;
};

/// The logins of one or more databases, one after the other.
class ChromiumLogins {
public:
    /// @throws std::bad_alloc
    void add(std::unique_ptr<const ChromiumDatabase> database);

    [[nodiscard]] auto begin() const noexcept { return _logins.begin(); }

    [[nodiscard]] auto end() const noexcept { return _logins.end(); }

    [[nodiscard]] std::size_t size() const noexcept { return _logins.size(); }

    [[nodiscard]] std::span<const std::unique_ptr<const ChromiumDatabase>>
    databases() const noexcept {
        return _databases;
    }

private:
    std::vector<std::unique_ptr<const ChromiumDatabase>> _databases;
    std::vector<ChromiumLogin> _logins;
};

} // namespace Rellinor
