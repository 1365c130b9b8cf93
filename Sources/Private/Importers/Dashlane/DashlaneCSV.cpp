#include <array>

#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Name = std::string_view;

constexpr Name product = "Dashlane";

constexpr std::array<Name, 7> credentialNames = {"username", "username2", "username3", "title",
                                                 "password", "note",      "url"};
constexpr auto credentialColumns = std::array{
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "username2", .extra = furtherUserName},
    CSVColumn{.name = "username3", .extra = furtherUserName},
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "category", .extra = folder}, // names of collections, which may hold commas
    CSVColumn{.name = "otpurl", .extra = oneTimePassword},
    CSVColumn{.name = "otpsecret", .extra = oneTimePassword},
    CSVColumn{.name = "otp", .extra = oneTimePassword},
};

constexpr std::array<Name, 2> noteNames = {"title", "note"};
constexpr auto noteColumns = std::array{
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "category", .extra = folder},
};

constexpr std::array<Name, 6> paymentNames = {"type", "account_name",     "cc_number",
                                              "code", "expiration_month", "expiration_year"};
constexpr auto paymentColumns = std::array{
    CSVColumn{.name = "type", .field = kind},
    CSVColumn{.name = "account_name", .field = cardHolder},
    CSVColumn{.name = "account_holder", .extra = customText},
    CSVColumn{.name = "cc_number", .field = cardNumber},
    CSVColumn{.name = "code", .field = cvv},
    CSVColumn{.name = "expiration_month", .field = expiryMonth},
    CSVColumn{.name = "expiration_year", .field = expiryYear},
    CSVColumn{.name = "routing_number", .extra = customText},
    CSVColumn{.name = "account_number", .extra = customSecret},
    CSVColumn{.name = "country", .extra = customText},
    CSVColumn{.name = "issuing_bank", .extra = customText},
    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "name", .field = title},
};
constexpr auto paymentKinds = std::array{
    CSVKindName{"payment_card", CSVKind::card},
    CSVKindName{"credit_card", CSVKind::card},
    CSVKindName{"bank", CSVKind::other},
};

/// A card without a holder has the name as one. The title of a bank account is the account's name.
void finishPayment(CSVItem& item) {
    if (item.kind() == CSVKind::card && item.text(cardHolder).empty()) {
        const Name name = item.text(title);
        item.add({.field = cardHolder, .name = "name", .label = "name", .text = name});
    } else if (item.kindName() == "bank" && !item.text(cardHolder).empty()) {
        const auto addAs = [&](CSVEntry entry, CSVField field) {
            entry.field = field;
            entry.extra = customText;
            item.add(entry);
        };
        item.expand(title, [&](const CSVEntry& name) { addAs(name, none); });
        item.expand(cardHolder, [&](const CSVEntry& account) { addAs(account, title); });
    }
}

constexpr std::array<Name, 6> documentNames = {"type",       "number",          "name",
                                               "issue_date", "expiration_date", "place_of_issue"};
constexpr auto documentColumns = std::array{
    CSVColumn{.name = "type", .field = kind},
    CSVColumn{.name = "number", .extra = customText},
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "issue_date", .extra = customText},
    CSVColumn{.name = "expiration_date", .extra = customText},
    CSVColumn{.name = "place_of_issue", .extra = customText},
    CSVColumn{.name = "state", .extra = customText},
};
constexpr auto documentKinds = std::array{
    CSVKindName{"card", CSVKind::other},       CSVKindName{"passport", CSVKind::other},
    CSVKindName{"license", CSVKind::other},    CSVKindName{"social_security", CSVKind::other},
    CSVKindName{"tax_number", CSVKind::other},
};

constexpr std::array<Name, 6> personNames = {"type",        "title",     "first_name",
                                             "middle_name", "last_name", "date_of_birth"};
constexpr auto personColumns = std::array{
    CSVColumn{.name = "type", .field = kind},
    CSVColumn{.name = "title", .extra = customText}, // of the person
    CSVColumn{.name = "first_name", .extra = customText},
    CSVColumn{.name = "middle_name", .extra = customText},
    CSVColumn{.name = "last_name", .extra = customText},
    CSVColumn{.name = "login", .extra = customText},
    CSVColumn{.name = "date_of_birth", .extra = customText},
    CSVColumn{.name = "place_of_birth", .extra = customText},
    CSVColumn{.name = "email", .extra = email},
    CSVColumn{.name = "email_type", .extra = customText},
    CSVColumn{.name = "item_name", .field = title},
    CSVColumn{.name = "phone_number", .extra = phone},
    CSVColumn{.name = "address", .extra = customText},
    CSVColumn{.name = "country", .extra = customText},
    CSVColumn{.name = "state", .extra = customText},
    CSVColumn{.name = "city", .extra = customText},
    CSVColumn{.name = "zip", .extra = customText},
    CSVColumn{.name = "address_recipient", .extra = customText},
    CSVColumn{.name = "address_building", .extra = customText},
    CSVColumn{.name = "address_apartment", .extra = customText},
    CSVColumn{.name = "address_floor", .extra = customText},
    CSVColumn{.name = "address_door_code", .extra = customText},
    CSVColumn{.name = "job_title", .extra = customText},
    CSVColumn{.name = "url", .extra = furtherURL},
};
constexpr auto personKinds = std::array{
    CSVKindName{"name", CSVKind::other},    CSVKindName{"email", CSVKind::other},
    CSVKindName{"number", CSVKind::other},  CSVKindName{"address", CSVKind::other},
    CSVKindName{"company", CSVKind::other}, CSVKindName{"website", CSVKind::other},
};

constexpr std::array<Name, 3> networkNames = {"ssid", "passphrase", "encription_type"};
constexpr auto networkColumns = std::array{
    CSVColumn{.name = "ssid", .extra = customText},
    CSVColumn{.name = "passphrase", .extra = customSecret},
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "hidden", .extra = customText},
    CSVColumn{.name = "encription_type", .extra = customText}, // as the product spells it
};

void finishNetwork(CSVItem& item) {
    item.setKindName("wifi");
}

bool isIdentifier(std::string_view cell) noexcept {
    return firstIdentifier(cell) == cell;
}

/// A document, whose cells have no names.
void readOldDocument(CSVItem& item, std::span<const std::string_view> row) {
    item.setKind(CSVKind::other);
    item.setKindName("document");
    for (const std::string_view cell : row) {
        const bool hasTitle = !item.entries().empty();
        if (isIdentifier(cell)) {
            item.addUnread("identifier");
        } else {
            item.add({.field = hasTitle ? none : title, .extra = customText, .text = cell});
        }
    }
}

/// Title, address, user names, password, note. An identifier in the first or last place marks a
/// document.
void readOldRow(CSVItem& item, std::span<const std::string_view> row) {
    constexpr std::size_t fewest = 5;

    if (row.size() < fewest) {
        item.setKind(CSVKind::tooShort);
        return;
    }
    if (isIdentifier(row.front()) || isIdentifier(row.back())) {
        readOldDocument(item, row);
        return;
    }
    item.add({.field = title, .text = row[0]});
    item.add({.field = url, .text = row[1]});
    item.add({.field = username, .text = row[2]});
    for (const std::string_view name : row.subspan(3, row.size() - fewest)) {
        item.add({.extra = furtherUserName, .text = name});
    }
    item.add({.field = password, .text = row[row.size() - 2]});
    item.add({.field = note, .text = row.back()});
}

constexpr auto dashlaneTables = std::array{
    CSVLayout{
        .layout = Layout::dashlaneCSV,
        .product = product,
        .evidence = "the columns username2 and username3",
        .required = credentialNames,
        .columns = credentialColumns,
    },
    CSVLayout{
        .layout = Layout::dashlaneCSV,
        .product = product,
        .evidence = "the columns title and note alone",
        .required = noteNames,
        .columns = noteColumns,
        .others = OtherColumns::none,
        .usualKind = CSVKind::note,
    },
    CSVLayout{
        .layout = Layout::dashlaneCSV,
        .product = product,
        .evidence = "the columns account_name, cc_number and code",
        .required = paymentNames,
        .columns = paymentColumns,
        .kinds = paymentKinds,
        .usualKind = CSVKind::card,
        .finish = finishPayment,
    },
    CSVLayout{
        .layout = Layout::dashlaneCSV,
        .product = product,
        .evidence = "the columns issue_date, expiration_date and place_of_issue",
        .required = documentNames,
        .columns = documentColumns,
        .kinds = documentKinds,
        .usualKind = CSVKind::other,
    },
    CSVLayout{
        .layout = Layout::dashlaneCSV,
        .product = product,
        .evidence = "the columns first_name, middle_name, last_name and date_of_birth",
        .required = personNames,
        .columns = personColumns,
        .kinds = personKinds,
        .usualKind = CSVKind::other,
    },
    CSVLayout{
        .layout = Layout::dashlaneCSV,
        .product = product,
        .evidence = "the columns ssid, passphrase and encription_type",
        .required = networkNames,
        .columns = networkColumns,
        .usualKind = CSVKind::other,
        .finish = finishNetwork,
    },
};

constexpr auto dashlanePositionalTables = std::array{
    CSVLayout{
        .layout = Layout::dashlanePositionalCSV,
        .product = product,
        .readRow = readOldRow,
    },
};

} // namespace

constinit const CSVTables dashlaneCSV = dashlaneTables;
constinit const CSVTables dashlanePositionalCSV = dashlanePositionalTables;

} // namespace Rellinor
