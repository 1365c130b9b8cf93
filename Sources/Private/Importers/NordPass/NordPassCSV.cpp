#include <array>

#include "Private/Importers/CSVCells.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Importers/JSONCell.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Name = std::string_view;

constexpr std::array<Name, 11> names = {
    "name",       "url", "username",   "password", "note",  "cardholdername",
    "cardnumber", "cvc", "expirydate", "zipcode",  "folder"};

/// Addresses as a JSON list of texts.
void readMoreAddresses(CSVItem& item, const CSVEntry& cell) {
    const auto document = documentIn(cell, item);
    const auto addresses = document ? document->root().elements() : std::nullopt;
    if (!addresses) {
        addAsItStands(cell, item);
        return;
    }
    for (const JSONValue address : *addresses) {
        item.addAddress(cell, textOf(address, cell, item));
    }
}

/// Fields as JSON, `[{"label":…,"type":…,"value":…}]`.
void readFields(CSVItem& item, const CSVEntry& cell) {
    const auto document = documentIn(cell, item);
    const auto fields = document ? document->root().objects() : std::nullopt;
    if (!fields) {
        addAsItStands(cell, item);
        return;
    }
    for (const JSONObject& field : *fields) {
        Name label;
        Name text;
        bool isHidden = false;
        field.forEachNamed({}, [&](Name name, const JSONValue& value) {
            if (name == "label") {
                label = textOf(value, cell, item);
            } else if (name == "type") {
                isHidden = value.text() == "hidden";
            } else if (name == "value") {
                text = textOf(value, cell, item);
            }
        });
        item.add(cell, isHidden ? customSecret : customText, label, text);
    }
}

/// Older files do not say the kind.
void finish(CSVItem& item) {
    const auto has = [&](CSVField field) { return !item.text(field).empty(); };
    if (!item.kindName().empty()) {
        return;
    }
    bool hasPerson = false;
    for (const CSVEntry& entry : item.entries()) {
        hasPerson = hasPerson || entry.name == "full_name";
    }
    if (has(cardNumber)) {
        item.setKind(CSVKind::card);
    } else if (hasPerson) {
        item.setKind(CSVKind::other);
        item.setKindName("identity");
    } else if (has(password) || has(username) || has(url)) {
        item.setKind(CSVKind::login);
    } else {
        item.setKind(has(note) ? CSVKind::note : CSVKind::placeholder);
    }
}

constexpr auto columns = std::array{
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "additional_urls", .read = readMoreAddresses},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "cardholdername", .field = cardHolder},
    CSVColumn{.name = "cardnumber", .field = cardNumber},
    CSVColumn{.name = "cvc", .field = cvv},
    CSVColumn{.name = "pin", .field = pin},
    CSVColumn{.name = "expirydate", .field = expiry},
    CSVColumn{.name = "zipcode", .extra = customText},
    CSVColumn{.name = "folder", .extra = folder},
    CSVColumn{.name = "full_name", .extra = customText},
    CSVColumn{.name = "phone_number", .extra = phone},
    CSVColumn{.name = "email", .extra = email},
    CSVColumn{.name = "address1", .extra = customText},
    CSVColumn{.name = "address2", .extra = customText},
    CSVColumn{.name = "city", .extra = customText},
    CSVColumn{.name = "country", .extra = customText},
    CSVColumn{.name = "state", .extra = customText},
    CSVColumn{.name = "type", .field = kind},
    CSVColumn{.name = "custom_fields", .read = readFields},
};

constexpr auto kinds = std::array{
    CSVKindName{"password", CSVKind::login},     CSVKindName{"note", CSVKind::note},
    CSVKindName{"credit_card", CSVKind::card},   CSVKindName{"identity", CSVKind::other},
    CSVKindName{"document", CSVKind::other},     CSVKindName{"passkey", CSVKind::other},
    CSVKindName{"folder", CSVKind::placeholder},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::nordPassCSV,
        .product = "NordPass",
        .evidence = "the columns cardholdername, cardnumber, cvc and zipcode",
        .required = names,
        .columns = columns,
        .kinds = kinds,
        .finish = finish,
    },
};

} // namespace

constinit const CSVTables nordPassCSV = tables;

} // namespace Rellinor
