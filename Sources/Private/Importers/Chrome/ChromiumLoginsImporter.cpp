#include "Private/Importers/Chrome/ChromiumLoginsImporter.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <utility>

#include "Platform/File.hpp"
#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/Chrome/EncryptedBytes.hpp"
#include "Private/Importers/DatabaseImports.hpp"

namespace Rellinor {

namespace {

using Role = ChromiumRole;

constexpr std::string_view fieldOfNotes = "password_notes";

/// Calls `visit` with the columns of a login and their values, in their order.
void forEach(const ChromiumLogin& login, auto&& visit) {
    const auto columns = login.database->columns();
    const auto values = login.row.values();
    for (std::size_t index = 0; index < columns.size(); ++index) {
        visit(columns[index], values[index]);
    }
}

/// The value of the column with a role that one column has; absent if there is none.
SQLiteValue valueOf(const ChromiumLogin& login, Role role) noexcept {
    SQLiteValue found;
    forEach(login, [&](const ChromiumColumn& column, const SQLiteValue& value) {
        found = column.role == role ? value : found;
    });
    return found;
}

/// Nothing, no text, no bytes or 0.
bool isEmpty(const SQLiteValue& value) noexcept {
    if (const auto text = value.text()) {
        return text->empty();
    }
    if (const auto bytes = value.blob()) {
        return bytes->empty();
    }
    return value.integer().value_or(0) == 0 && value.number().value_or(0) == 0;
}

/// Whether a person would miss what stands in a column of a role.
bool countsAsText(Role role) noexcept {
    switch (role) {
        using enum Role;
    case url:
    case furtherURL:
    case username:
    case password:
    case detail:
    case unknown:
        return true;
    default:
        return false;
    }
}

std::span<const ChromiumNote> notesOf(const ChromiumLogin& login) noexcept {
    const bool hasNotes = login.database->hasNotes();
    const auto key = hasNotes ? valueOf(login, Role::key).integer() : std::nullopt;
    return key ? login.database->notesOf(*key) : std::span<const ChromiumNote>();
}

/// The note that the browser shows: the one without a key, or the first.
const ChromiumNote* shownNoteOf(const ChromiumLogin& login) noexcept {
    const auto notes = notesOf(login);
    if (notes.empty()) {
        return nullptr;
    }
    const auto shown = std::ranges::find(notes, std::string_view(), &ChromiumNote::key);
    return shown != notes.end() ? &*shown : notes.data();
}

template <typename Number>
std::string_view digitsOf(Number number, ImportMemory& memory) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    return memory.copy({digits.begin(), end});
}

ExtraKind kindOf(Role role) noexcept {
    switch (role) {
    case Role::createdAt:
        return ExtraKind::createdAt;
    case Role::lastUsedAt:
        return ExtraKind::lastUsedAt;
    default:
        return ExtraKind::other;
    }
}

/// What a login may be in: the file itself, or what a profile folder has.
std::vector<ExportFile> databasesIn(const ExportFile& file) {
    if (!file.url() || !isFolder(file.url()->path())) {
        return {file};
    }
    std::vector<ExportFile> databases;
    for (const std::string_view name : {"Login Data", "Login Data For Account"}) {
        const URL url = file.url()->appendingPathComponent(name);
        if (stampOf(std::string(url.path())) != FileStamp()) {
            databases.push_back(ExportFile::atPath(url));
        }
    }
    if (databases.empty()) {
        throw ReadError(FailureReason::noStore);
    }
    return databases;
}

/// Tells of notes whose login is not there.
void reportStrayNotes(const ChromiumLogins& logins, Reporter& reporter) {
    std::size_t strayNotes = 0;
    for (const auto& database : logins.databases()) {
        strayNotes += database->numberOfNotes();
    }
    for (const ChromiumLogin& login : logins) {
        strayNotes -= std::min(strayNotes, notesOf(login).size()); // a view may repeat logins
    }
    if (strayNotes > 0) {
        reporter.unread("note without a login", strayNotes);
    }
}

/// Tells what is missing of databases, or fails if all is.
void reportEndings(const ChromiumLogins& logins, Reporter& reporter) {
    for (const auto& database : logins.databases()) {
        for (const SQLiteEnding ending : {database->endingOfLogins(), database->endingOfNotes()}) {
            const FailureReason reason = reasonOf(ending);
            if (reason != FailureReason::none && logins.size() == 0) {
                throw ReadError(reason);
            }
            reportEnding(ending, database->logins().size(), reporter);
        }
    }
}

} // namespace

ChromiumLogins ChromiumLoginsImporter::read(const ExportFile& file, ImportMemory& memory,
                                            Reporter* reporter) {
    _reporter = reporter;
    ChromiumLogins logins;
    for (const ExportFile& database : databasesIn(file)) {
        auto snapshot = SQLiteSnapshot::of(database, reporter->limits().largestFile);
        if (!snapshot) {
            throw ReadError(snapshot.error());
        }
        reportSideFiles(*snapshot, *reporter);
        logins.add(std::make_unique<const ChromiumDatabase>(*snapshot, memory));
        for (const std::string_view column : logins.databases().back()->unreadColumns()) {
            reporter->unread(column);
        }
    }
    reporter->setPlaces(PlaceUnit::row);
    reporter->expect(logins.size());
    reportStrayNotes(logins, *reporter);
    reportEndings(logins, *reporter);
    return logins;
}

bool ChromiumLoginsImporter::isPassword(const RawRecord& record) noexcept {
    bool isExcluded = false;
    bool hasText = false;
    forEach(record, [&](const ChromiumColumn& column, const SQLiteValue& value) {
        if (column.role == Role::excluded) {
            isExcluded = !isEmpty(value);
        } else if (!hasText && countsAsText(column.role)) {
            hasText = !isEmpty(value);
        }
    });
    return !isExcluded && (hasText || !notesOf(record).empty());
}

Dropped ChromiumLoginsImporter::whyNoKind(const RawRecord& record) noexcept {
    if (!isEmpty(valueOf(record, Role::excluded))) {
        return {.reason = LeftOutReason::otherKind, .field = "excluded site"};
    }
    return {.reason = LeftOutReason::empty, .field = {}};
}

Built<ImportedPassword> ChromiumLoginsImporter::buildPassword(const RawRecord& record) {
    ImportMemory& memory = record.row.memory();
    std::string_view url;
    std::string_view furtherURL;
    std::string_view username;
    std::string_view password;
    std::optional<std::int64_t> pwdChange;
    forEach(record, [&](const ChromiumColumn& column, const SQLiteValue& value) {
        switch (column.role) {
        case Role::url:
            url = textOf(value, column.name, memory);
            break;
        case Role::furtherURL:
            if (furtherURL.empty()) {
                furtherURL = value.text().value_or("");
            }
            break;
        case Role::username:
            username = textOf(value, column.name, memory);
            break;
        case Role::password:
            password = secretOf(value, column.name, memory);
            break;
        case Role::passwordChangedAt:
            pwdChange = unixTimeOf(value, column.name);
            break;
        default:
            break;
        }
    });
    std::optional<std::string_view> note;
    if (const ChromiumNote* const shown = shownNoteOf(record)) {
        const std::string_view text = secretOf(shown->value, fieldOfNotes, memory);
        note = text.empty() ? std::nullopt : std::optional(text);
    }
    return ImportedPassword{
        username, password, url.empty() ? furtherURL : url, {}, {}, note, pwdChange,
    };
}

void ChromiumLoginsImporter::addExtras(const RawRecord& record, ExtrasTable& extras) {
    ImportMemory& memory = record.row.memory();
    forEach(record, [&](const ChromiumColumn& column, const SQLiteValue& value) {
        switch (column.role) {
        case Role::createdAt:
        case Role::lastUsedAt:
        case Role::otherTime:
            if (isEmpty(value)) {
                return; // 0 is no time
            }
            [[fallthrough]];
        case Role::furtherURL:
        case Role::detail:
            extras.add(kindOf(column.role), column.name, textOf(value, column.name, memory));
            return;
        case Role::unknown:
            if (const auto text = value.text()) {
                extras.add(ExtraKind::other, column.name, *text);
            } else if (!isEmpty(value)) {
                _reporter->unread("column without a text");
            }
            return;
        default:
            return;
        }
    });
    const ChromiumNote* const shown = shownNoteOf(record);
    for (const ChromiumNote& note : notesOf(record)) {
        if (&note != shown) {
            extras.add(ExtraKind::customSecret, note.key,
                       secretOf(note.value, fieldOfNotes, memory));
        }
    }
}

std::string_view ChromiumLoginsImporter::secretOf(const SQLiteValue& value, std::string_view field,
                                                  ImportMemory& memory) {
    const auto bytes = value.blob();
    if (!bytes) {
        return textOf(value, field, memory);
    }
    if (!bytes->empty()) {
        find(FindingKind::stillEncrypted, field);
    }
    return base64Of(*bytes, memory);
}

std::string_view ChromiumLoginsImporter::textOf(const SQLiteValue& value, std::string_view field,
                                                ImportMemory& memory) {
    if (const auto text = value.text()) {
        return *text;
    }
    if (const auto integer = value.integer()) {
        return digitsOf(*integer, memory);
    }
    if (const auto number = value.number()) {
        return digitsOf(*number, memory);
    }
    if (!isEmpty(value)) {
        find(FindingKind::valueOfOtherType, field);
    }
    return {};
}

std::optional<std::int64_t> ChromiumLoginsImporter::unixTimeOf(const SQLiteValue& value,
                                                               std::string_view field) {
    constexpr std::int64_t microseconds = 1'000'000;
    constexpr std::int64_t unixEpoch = 11'644'473'600; // in seconds since the year 1601

    if (isEmpty(value)) {
        return std::nullopt;
    }
    const auto time = value.integer();
    if (!time) {
        find(FindingKind::valueOfOtherType, field);
        return std::nullopt;
    }
    return *time / microseconds - unixEpoch;
}

void ChromiumLoginsImporter::find(FindingKind kind, std::string_view field) noexcept {
    _reporter->found(kind, field);
}

} // namespace Rellinor
