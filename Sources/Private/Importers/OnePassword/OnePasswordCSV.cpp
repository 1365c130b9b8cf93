#include <algorithm>
#include <array>

#include "Private/Importers/CSVCells.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Importers/OnePassword/OnePasswordCategory.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Name = std::string_view;

constexpr Name product = "1Password";
constexpr Name identifier = "identifier";
constexpr Name settings = "settings of the product";

// Version 8

constexpr std::array<Name, 7> names8 = {"title",   "url",      "username", "password",
                                        "otpauth", "favorite", "archived"};
constexpr auto columns8 = std::array{
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "otpauth", .extra = oneTimePassword},
    CSVColumn{.name = "favorite", .extra = favourite, .read = readFlag},
    CSVColumn{.name = "archived", .extra = archived, .read = readFlag},
    CSVColumn{.name = "tags", .extra = tag, .read = readTags},
    CSVColumn{.name = "notes", .field = note},
};

// Version 7 for Mac

/// A tag as the system describes it in a list: in quotes if it is more than a word, with a comma
/// behind it unless it is the last.
Name withoutQuotes(Name tag) noexcept {
    if (tag.ends_with(',')) {
        tag.remove_suffix(1);
    }
    const bool isQuoted = tag.size() > 1 && tag.starts_with('"') && tag.ends_with('"');
    return isQuoted ? tag.substr(1, tag.size() - 2) : tag;
}

/// A list of tags, as the system describes one: each in a line of its own, between `{(` and `)}`.
void readSetOfTags(CSVItem& item, const CSVEntry& cell) {
    Name text = cell.text;
    if (!text.starts_with("{(") || !text.ends_with(")}")) {
        readTags(item, cell);
        return;
    }
    text = text.substr(2, text.size() - 4);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        item.add(cell, tag, cell.label, withoutQuotes(withoutBlanksAround(text.substr(0, end))));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

constexpr std::array<Name, 5> namesMac = {"title", "type", "password", "username", "scope"};
constexpr std::array<Name, 4> namesMacChosen = {"title", "type", "password", "username"};
constexpr auto columnsMac = std::array{
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "type", .field = kind},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "notes", .field = note},
    CSVColumn{.name = "tags", .extra = tag, .read = readSetOfTags},
    CSVColumn{.name = "created date", .extra = createdAt},
    CSVColumn{.name = "modified date", .extra = modifiedAt},
    CSVColumn{.name = "scope", .unread = settings},
};

CSVField fieldOf(ItemField field) noexcept {
    switch (field) {
    case ItemField::username:
        return CSVField::username;
    case ItemField::password:
        return CSVField::password;
    case ItemField::address:
        return url;
    case ItemField::cardHolder:
        return CSVField::cardHolder;
    case ItemField::cardNumber:
        return CSVField::cardNumber;
    case ItemField::cvv:
        return CSVField::cvv;
    case ItemField::pin:
        return CSVField::pin;
    case ItemField::expiry:
        return CSVField::expiry;
    case ItemField::expiryMonth:
        return CSVField::expiryMonth;
    case ItemField::expiryYear:
        return CSVField::expiryYear;
    case ItemField::none:
        return CSVField::none;
    }
    return CSVField::none;
}

/// A column `label(identifier)`: the identifier is the same in every language.
std::optional<CSVOtherColumn> columnWithIdentifier(Name name) {
    const std::size_t open = name.rfind('(');
    if (open == Name::npos || open == 0 || name[open - 1] == ' ' || !name.ends_with(')')) {
        return std::nullopt;
    }
    const Name id = name.substr(open + 1, name.size() - open - 2);
    if (id.empty() || id.contains(' ')) {
        return std::nullopt;
    }
    const auto ofCard = onePasswordFieldOf(OnePasswordShape::card, id);
    const auto ofLogin = onePasswordFieldOf(OnePasswordShape::login, id);
    const CSVField field = fieldOf(ofCard != ItemField::none ? ofCard : ofLogin);
    ExtraKind kind = isHiddenInOnePassword(id) ? customSecret : customText;
    if (field != none) {
        kind = other;
    } else if (id == "email") {
        kind = email;
    } else if (id.starts_with("TOTP_")) {
        kind = oneTimePassword;
    }
    return CSVOtherColumn{.column = {.name = {}, .field = field, .extra = kind},
                          .label = name.substr(0, open)};
}

void finishMac(CSVItem& item) {
    const Name type = item.text(kind);
    if (type.empty()) {
        return;
    }
    const OnePasswordCategory& category = onePasswordCategoryNamed(type);
    item.setKindName(category.name);
    switch (category.shape) {
    case OnePasswordShape::webForm:
    case OnePasswordShape::login:
        item.setKind(CSVKind::login);
        break;
    case OnePasswordShape::note:
        item.setKind(CSVKind::note);
        break;
    case OnePasswordShape::card:
        item.setKind(CSVKind::card);
        break;
    default:
        item.setKind(CSVKind::other);
    }
    if (!category.typeName.empty()) {
        item.remove(kind);
    }
}

// Version 7 for Windows

constexpr std::array<Name, 4> namesWindows = {"uuid", "title", "scope", "autosubmit"};
constexpr auto columnsWindows = std::array{
    CSVColumn{.name = "uuid", .unread = identifier},
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "urls", .read = readAddressesBetween<',', ' '>},
    CSVColumn{.name = "email", .extra = email},
    CSVColumn{.name = "master-password", .extra = customSecret},
    CSVColumn{.name = "account-key", .extra = customSecret},
    CSVColumn{.name = "scope", .unread = settings},
    CSVColumn{.name = "autosubmit", .unread = settings},
    CSVColumn{.name = "tags", .extra = tag, .read = readTags},
    CSVColumn{.name = "notes", .field = note},
};

/// The fields of a card, which are in the first section.
constexpr auto columnsOfCard = std::array{
    CSVColumn{.name = "cardholder name", .field = cardHolder},
    CSVColumn{.name = "number", .field = cardNumber},
    CSVColumn{.name = "verification number", .field = cvv},
    CSVColumn{.name = "expiry date", .field = expiry},
    CSVColumn{.name = "pin", .field = pin},
};

/// A column of a section: `SECTION n: NAME` has the section's title; a field is `n: LABEL` in the
/// first section, and `NAME n: LABEL` in the others.
std::optional<CSVOtherColumn> columnOfSection(Name name) {
    const std::size_t colon = name.find(": ");
    if (colon == Name::npos || colon == 0 || name[colon - 1] < '0' || name[colon - 1] > '9') {
        return std::nullopt;
    }
    const bool isTitle = name.size() > 8 && sameIgnoringCase(name.substr(0, 8), "section ");
    if (isTitle && name.substr(8, colon - 8).find_first_not_of("0123456789") == Name::npos) {
        return CSVOtherColumn{.column = {.name = {}, .unread = "titles of sections"},
                              .label = name};
    }
    const Name label = name.substr(colon + 2);
    const bool isFirst = name.substr(0, colon).find_first_not_of("0123456789") == Name::npos;
    for (const CSVColumn& column : columnsOfCard) {
        if (sameIgnoringCase(column.name, label) && (isFirst || column.field == pin)) {
            return CSVOtherColumn{.column = column, .label = name};
        }
    }
    const bool isHidden = label.contains("PASSWORD") || label.ends_with(" PIN");
    return CSVOtherColumn{.column = {.name = {}, .extra = isHidden ? customSecret : customText},
                          .label = name};
}

/// There is no column for the kind.
void finishWindows(CSVItem& item) {
    const auto hasDetail = [&](auto&& accepts) {
        return std::ranges::any_of(item.entries(), [&](const CSVEntry& entry) {
            return entry.label.contains(": ") && accepts(entry);
        });
    };
    if (!item.text(cardNumber).empty() && !item.text(expiry).empty()) {
        item.setKind(CSVKind::card);
    } else if (hasDetail([](const CSVEntry& entry) {
                   return entry.label.starts_with("NAME ") && entry.label.ends_with(" NAME");
               })) {
        item.setKind(CSVKind::other);
        item.setKindName("Identity");
    } else if (!item.text(username).empty() || !item.text(password).empty() ||
               !item.text(url).empty()) {
        item.setKind(CSVKind::login);
    } else if (hasDetail([](const CSVEntry&) { return true; })) {
        item.setKind(CSVKind::other);
    } else {
        item.setKind(CSVKind::note);
    }
}

constexpr auto onePassword8Tables = std::array{
    CSVLayout{
        .layout = Layout::onePassword8CSV,
        .product = product,
        .evidence = "the columns OTPAuth, Favorite and Archived",
        .required = names8,
        .columns = columns8,
    },
};

constexpr auto onePassword7MacTables = std::array{
    CSVLayout{
        .layout = Layout::onePassword7MacCSV,
        .product = product,
        .evidence = "the columns Title, Type and Scope",
        .required = namesMac,
        .columns = columnsMac,
        .quotes = CSVQuotes::backslashed,
        .otherColumn = columnWithIdentifier,
        .finish = finishMac,
    },
    CSVLayout{
        .layout = Layout::onePassword7MacCSV,
        .product = product,
        .evidence = "the columns Title, Type, Username and Password",
        .required = namesMacChosen,
        .columns = columnsMac,
        .others = OtherColumns::none,
        .quotes = CSVQuotes::backslashed,
        .otherColumn = columnWithIdentifier,
        .finish = finishMac,
    },
};

constexpr auto onePassword7WindowsTables = std::array{
    CSVLayout{
        .layout = Layout::onePassword7WindowsCSV,
        .product = product,
        .evidence = "the columns UUID, SCOPE and AUTOSUBMIT",
        .required = namesWindows,
        .columns = columnsWindows,
        .quotes = CSVQuotes::backslashed,
        .otherColumn = columnOfSection,
        .finish = finishWindows,
    },
};

} // namespace

constinit const CSVTables onePassword8CSV = onePassword8Tables;
constinit const CSVTables onePassword7MacCSV = onePassword7MacTables;
constinit const CSVTables onePassword7WindowsCSV = onePassword7WindowsTables;

} // namespace Rellinor
