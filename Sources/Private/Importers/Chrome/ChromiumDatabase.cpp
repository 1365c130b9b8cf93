#include "Private/Importers/Chrome/ChromiumDatabase.hpp"

#include <string>
#include <utility>

#include "Private/Proxies/SQLiteFileProxy.hpp"

namespace Rellinor {

namespace {

/// A name as SQL writes it.
std::string quoted(std::string_view name) {
    std::string text = "\"";
    for (const char character : name) {
        text.append(character == '"' ? 2 : 1, character);
    }
    return text += '"';
}

} // namespace

ChromiumDatabase::ChromiumDatabase(SQLiteSnapshot& snapshot, ImportMemory& memory)
    : _logins(memory) {
    SQLiteFileProxy proxy(snapshot, SQLiteFaithfulness::whole, memory);
    const SQLiteRows one = proxy.select("SELECT * FROM logins LIMIT 1");
    std::string columns;
    for (const SQLiteRow& row : one) {
        for (const std::string_view name : row.names()) {
            const ChromiumColumn column = chromiumColumn(name);
            if (column.role == ChromiumRole::unread) {
                _unreadColumns.push_back(column.name);
                continue;
            }
            _columns.push_back(column);
            columns += (columns.empty() ? "" : ", ") + quoted(name);
        }
    }
    if (!columns.empty()) {
        _logins = proxy.select("SELECT " + columns + " FROM logins");
    }
    _endingOfLogins = proxy.ending();
    readNotes(snapshot, memory);
}

void ChromiumDatabase::readNotes(SQLiteSnapshot& snapshot, ImportMemory& memory) {
    SQLiteFileProxy proxy(snapshot, SQLiteFaithfulness::whole, memory);
    // The notes themselves stay in the import's memory; the rows are let go.
    // Browsers store the encrypted bytes of a note as a text, which they are not.
    const SQLiteRows notes =
        proxy.select("SELECT parent_id, \"key\", CAST(value AS BLOB) FROM password_notes");
    _numberOfNotes = notes.size();
    for (const SQLiteRow& note : notes) {
        const auto values = note.values();
        if (const auto login = values[0].integer()) {
            _notes[*login].push_back(
                {.key = values[1].text().value_or(std::string_view()), .value = values[2]});
        }
    }
    const bool isThere = proxy.ending() != SQLiteEnding::notPrepared;
    _endingOfNotes = isThere ? proxy.ending() : SQLiteEnding::complete;
}

std::span<const ChromiumNote> ChromiumDatabase::notesOf(std::int64_t login) const noexcept {
    const auto found = _notes.find(login);
    return found != _notes.end() ? std::span(found->second) : std::span<const ChromiumNote>();
}

void ChromiumLogins::add(std::unique_ptr<const ChromiumDatabase> database) {
    _databases.push_back(std::move(database));
    const ChromiumDatabase* const added = _databases.back().get();
    _logins.reserve(_logins.size() + added->logins().size());
    for (const SQLiteRow& row : added->logins()) {
        _logins.push_back({.row = row, .database = added});
    }
}

} // namespace Rellinor
