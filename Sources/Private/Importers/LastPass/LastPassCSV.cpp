#include <algorithm>
#include <array>
#include <optional>

#include "Private/Importers/CSVCells.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Name = std::string_view;

constexpr std::array<Name, 7> names = {"url",  "username", "password", "extra",
                                       "name", "grouping", "fav"};

// Typed notes: a line with the type, then a line for each key, and the note behind the last one.

constexpr Name prefixOfType = "NoteType:";
constexpr Name prefixOfNote = "Notes:";
constexpr Name cardType = "Credit Card";
constexpr Name otherType = "other type";

constexpr std::array<Name, 17> types = {
    "Bank Account",    "Address",       "SSH Key",           "Driver's License", "Passport",
    "Social Security", "Membership",    "Insurance",         "Health Insurance", "Database",
    "Server",          "Email Account", "Instant Messenger", "Software License", "Wi-Fi Password",
    "Custom",          cardType,
};

/// A line of a card; its text is a field, or an extra.
struct CardKey {
    Name name;
    CSVField field = none;
};

constexpr auto cardKeys = std::array{
    CardKey{"Language"},
    CardKey{"Name on Card", cardHolder},
    CardKey{"Type"},
    CardKey{"Number", cardNumber},
    CardKey{"Security Code", cvv},
    CardKey{"Start Date"},
    CardKey{"Expiration Date", expiry},
};

constexpr std::array<Name, 12> months = {"January",   "February", "March",    "April",
                                         "May",       "June",     "July",     "August",
                                         "September", "October",  "November", "December"};

/// Takes the first line off a text.
Name takeLine(Name& text) noexcept {
    const std::size_t end = std::min(text.find('\n'), text.size());
    Name line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

/// The type of a typed note; a literal.
std::optional<Name> typeOf(Name text) noexcept {
    if (!text.starts_with(prefixOfType)) {
        return std::nullopt;
    }
    const Name type = takeLine(text).substr(prefixOfType.size());
    const auto* const known = std::ranges::find(types, type);
    if (known != types.end()) {
        return *known;
    }
    return type.starts_with("Custom_") ? "Custom" : otherType;
}

const CardKey* keyOf(Name line) noexcept {
    const auto* const key =
        std::ranges::find(cardKeys, line.substr(0, line.find(':')), &CardKey::name);
    return key != cardKeys.end() && line.contains(':') ? key : nullptr;
}

std::optional<CardDate> dateOf(Name text) noexcept {
    const std::size_t comma = text.find(',');
    if (comma == Name::npos) {
        return std::nullopt;
    }
    const Name month = withoutBlanksAround(text.substr(0, comma));
    const auto* const named =
        std::ranges::find_if(months, [&](Name name) { return sameIgnoringCase(name, month); });
    auto date = cardDate("", text.substr(comma + 1));
    if (!date || (named == months.end() && !month.empty())) {
        return std::nullopt;
    }
    date->month = month.empty() ? 0 : named - months.begin() + 1;
    return date;
}

void addCardValue(CSVItem& item, const CardKey& key, Name text) {
    const bool isDate = key.field == expiry || key.name == "Start Date";
    if (isDate && withoutBlanksAround(text) == ",") {
        return; // no date
    }
    const auto date = key.field == expiry ? dateOf(text) : std::nullopt;
    if (date && item.takeDate(*date)) {
        return;
    }
    item.add({.field = key.field,
              .extra = key.field == none ? customText : other,
              .name = key.name,
              .label = key.name,
              .text = text});
}

/// Reads the text of a card. A line without a key goes on with the value before it.
void readCard(CSVItem& item, const CSVEntry& cell) {
    Name rest = cell.text;
    takeLine(rest);
    const CardKey* key = nullptr;
    Name value;
    while (!rest.empty()) {
        if (rest.starts_with(prefixOfNote)) {
            CSVEntry own = cell;
            own.text = rest.substr(prefixOfNote.size());
            item.add(own);
            break;
        }
        const Name line = takeLine(rest);
        if (const CardKey* const next = keyOf(line)) {
            if (key != nullptr) {
                addCardValue(item, *key, value);
            }
            key = next;
            value = line.substr(next->name.size() + 1);
        } else if (key != nullptr) {
            value = {value.begin(), line.end()}; // which follows it
        } else {
            item.add(cell, customText, {}, line);
        }
    }
    if (key != nullptr) {
        addCardValue(item, *key, value);
    }
}

/// Whether a text holds one of the characters that some exports have encoded.
bool hasEntity(Name text) noexcept {
    constexpr std::array<Name, 5> entities = {"&lt;", "&gt;", "&amp;", "&quot;", "&#39;"};
    return text.contains('&') &&
           std::ranges::any_of(entities, [&](Name entity) { return text.contains(entity); });
}

void finish(CSVItem& item) {
    for (const CSVEntry& entry : item.entries()) {
        if (hasEntity(entry.text)) {
            item.reporter().found(FindingKind::htmlEntity, entry.name);
        }
    }
    const Name address = item.text(url);
    if (address == "http://group") {
        item.setKind(CSVKind::placeholder);
    } else if (address == "http://") {
        item.remove(url);
    } else if (address == "http://sn") {
        item.remove(url);
        item.setKind(CSVKind::note);
        const auto type = typeOf(item.text(note));
        if (type == cardType) {
            item.setKind(CSVKind::card);
            item.expand(note, [&](const CSVEntry& cell) { readCard(item, cell); });
        } else if (type) {
            item.reporter().found(FindingKind::typedNote, *type);
        }
    }
}

constexpr auto columns = std::array{
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "totp", .extra = oneTimePassword},
    CSVColumn{.name = "extra", .field = note},
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "grouping", .extra = folder},
    CSVColumn{.name = "fav", .extra = favourite, .read = readFlag},
    CSVColumn{.name = "id", .unread = "identifier"},
    CSVColumn{.name = "group"},
    CSVColumn{.name = "fullname"},
    CSVColumn{.name = "last_touch", .extra = lastUsedAt},
    CSVColumn{.name = "last_modified_gmt", .extra = modifiedAt},
    CSVColumn{.name = "attachpresent", .unread = "attachments"},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::lastPassCSV,
        .product = "LastPass",
        .evidence = "the columns extra, grouping and fav",
        .required = names,
        .columns = columns,
        .source = ImportSource::lastPass,
        .exactNames = names,
        .finish = finish,
    },
};

} // namespace

constinit const CSVTables lastPassCSV = tables;

} // namespace Rellinor
