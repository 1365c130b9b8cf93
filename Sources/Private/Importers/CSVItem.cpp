#include "Private/Importers/CSVItem.hpp"

#include <algorithm>
#include <optional>

#include "Private/Memory/Join.hpp"

namespace Rellinor {

namespace {

using enum CSVField;

/// The fields that a kind has, a bit for each; of the parts of a card's date none is meant.
constexpr std::uint32_t fieldsOf(CSVKind kind) noexcept {
    const auto bits = [](auto... fields) { return ((1U << std::to_underlying(fields)) | ...); };
    switch (kind) {
    case CSVKind::login:
        return bits(title, note, url, username, password, passwordChange);
    case CSVKind::card:
        return bits(title, note, cardHolder, cardNumber, cvv, pin);
    default:
        return bits(title, note);
    }
}

/// Whether an entry takes the place of a user name that is missing.
bool isName(const CSVEntry& entry) noexcept {
    return entry.field == none &&
           (entry.extra == ExtraKind::furtherUserName || entry.extra == ExtraKind::email);
}

} // namespace

void CSVItem::begin(ImportMemory& memory, Reporter& reporter) noexcept {
    _memory = &memory;
    _reporter = &reporter;
    clear();
    _unread.clear();
    _kind = CSVKind::login;
    _kindName = {};
    _date = {};
}

void CSVItem::clear() noexcept {
    _entries.clear();
    _fields = 0;
}

void CSVItem::addAddress(const CSVEntry& cell, std::string_view address) {
    const std::string_view known = text(url);
    if (known != address) {
        add({.field = known.empty() ? url : none,
             .extra = ExtraKind::furtherURL,
             .name = cell.name,
             .label = cell.label,
             .text = address});
    }
}

void CSVItem::settle() {
    if (_kind == CSVKind::login && text(username).empty()) {
        if (const auto name = std::ranges::find_if(_entries, isName); name != _entries.end()) {
            name->field = username;
            setFirst(username, static_cast<std::size_t>(name - _entries.begin()));
        }
    }
    takeFields();
    if (_kind == CSVKind::card) {
        takeDates();
    }
}

/// The first text is the field's. The same text once more has arrived with it.
void CSVItem::takeFields() noexcept {
    const std::uint32_t fields = fieldsOf(_kind);
    for (std::size_t index = 0; index < _entries.size(); ++index) {
        CSVEntry& entry = _entries[index];
        if ((fields >> std::to_underlying(entry.field) & 1U) != 0) {
            const std::size_t first = _first[std::to_underlying(entry.field)];
            entry.isTaken = first == index || entry.text == _entries[first].text;
        }
    }
}

void CSVItem::takeDates() {
    const auto read = [&](CSVField field, auto&& parse) {
        for (CSVEntry& entry : _entries) {
            if (entry.field != field) {
                continue;
            }
            const std::optional<CardDate> parsed = parse(entry.text);
            entry.isTaken = parsed && _date.complete(*parsed);
            if (!parsed) {
                _reporter->found(FindingKind::unreadableDate, entry.name);
            }
        }
    };
    read(expiry, [](std::string_view text) { return cardDate(text); });
    read(expiryMonth, [](std::string_view text) { return cardDate(text, ""); });
    read(expiryYear, [](std::string_view text) { return cardDate("", text); });
}

bool CSVItem::isEmpty() const noexcept {
    return std::ranges::all_of(_entries, isFact);
}

bool CSVItem::isFact(const CSVEntry& entry) noexcept {
    if (entry.field != none) {
        return entry.field == passwordChange;
    }
    switch (entry.extra) {
        using enum ExtraKind;
    case folder:
    case tag:
    case favourite:
    case archived:
    case createdAt:
    case modifiedAt:
    case lastUsedAt:
        return true;
    default:
        return false;
    }
}

ExtraKind CSVItem::extraKindOf(const CSVEntry& entry) noexcept {
    if (entry.extra != ExtraKind::other) {
        return entry.extra;
    }
    switch (entry.field) {
    case none:
        return ExtraKind::other;
    case url:
        return ExtraKind::furtherURL;
    case username:
        return ExtraKind::furtherUserName;
    case password:
    case cardNumber:
    case cvv:
    case pin:
        return ExtraKind::customSecret;
    default:
        return ExtraKind::customText;
    }
}

std::string_view CSVItem::linesAndNote() const {
    std::vector<std::string_view> parts;
    for (const CSVEntry& entry : _entries) {
        if (!entry.isTaken && !isFact(entry)) {
            parts.insert(parts.end(), {parts.empty() ? "" : "\n", entry.label,
                                       entry.label.empty() ? "" : ": ", entry.text});
        }
    }
    if (const std::string_view own = text(note); !own.empty()) {
        parts.insert(parts.end(), {parts.empty() ? "" : "\n\n", own});
    }
    return joined(parts, *_memory);
}

} // namespace Rellinor
