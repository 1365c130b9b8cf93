#include <algorithm>
#include <array>
#include <vector>

#include "Private/Importers/CSVCells.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Importers/JSONCell.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Name = std::string_view;

constexpr std::array<Name, 9> names = {"type", "name", "url",        "username",  "password",
                                       "note", "totp", "createtime", "modifytime"};

/// Addresses as JSON, `[{"url":…,"mode":…}]`.
void readAutofill(CSVItem& item, const CSVEntry& cell) {
    const auto document = documentIn(cell, item);
    const auto addresses = document ? document->root().objects() : std::nullopt;
    if (!addresses) {
        addAsItStands(cell, item);
        return;
    }
    for (const JSONObject& address : *addresses) {
        address.forEachNamed({}, [&](Name name, const JSONValue& value) {
            if (name == "url") {
                item.addAddress(cell, textOf(value, cell, item));
            } else if (!value.isNull()) {
                item.addUnread("settings of the product");
            }
        });
    }
}

/// A member of a card, or of the identity of a person.
struct Member {
    Name name;
    CSVField field;
};

constexpr auto members = std::array{
    Member{"cardholderName", cardHolder},
    Member{"number", cardNumber},
    Member{"verificationNumber", cvv},
    Member{"expirationDate", expiry},
    Member{"pin", pin},
    Member{"note", note},
};

/// Reads what stands where the note stands in other entries.
class ContentsReader {
public:
    ContentsReader(CSVItem& item, const CSVEntry& cell) noexcept : _item(item), _cell(cell) {}

    void read(const JSONObject& contents) {
        contents.forEachNamed({}, [&](Name name, const JSONValue& value) {
            const auto* const member = std::ranges::find(members, name, &Member::name);
            const bool isOfCard = _item.kind() == CSVKind::card;
            const bool isField = member != members.end() && (isOfCard || member->field == note);
            if (isField && member->field == expiry) {
                addDate(textOf(value, _cell, _item));
            } else if (isField) {
                add(member->field, name, textOf(value, _cell, _item));
            } else {
                addValue(name, value);
            }
        });
    }

private:
    /// `YYYY-MM`, and in older files `MMYYYY`.
    void addDate(Name text) {
        constexpr std::size_t lengthOfOlder = 6;
        constexpr std::size_t lengthOfMonth = 2;

        const auto older = text.size() == lengthOfOlder
                               ? cardDate(text.substr(0, lengthOfMonth), text.substr(lengthOfMonth))
                               : std::nullopt;
        if (!older || !_item.takeDate(*older)) {
            add(expiry, "expirationDate", text);
        }
    }

    struct Labelled {
        Name label;
        bool isGiven = false; // by a person, to the field that the value is in
        JSONValue value;
    };

    /// A value under its name. Those inside of it have names of their own, but for a field that a
    /// person has added: that one has the name that the person gave it.
    void addValue(Name name, const JSONValue& value) {
        std::vector<Labelled> rest = {{.label = name, .value = value}};
        while (!rest.empty()) {
            const Labelled next = rest.back();
            rest.pop_back();
            const auto inner = static_cast<std::ptrdiff_t>(rest.size());
            if (const auto elements = next.value.elements()) {
                for (const JSONValue element : *elements) {
                    rest.push_back(
                        {.label = next.label, .isGiven = next.isGiven, .value = element});
                }
            } else if (const auto object = next.value.object()) {
                addMembers(next, *object, rest);
            } else {
                add(none, next.label, textOf(next.value, _cell, _item));
            }
            std::ranges::reverse(rest.begin() + inner, rest.end());
        }
    }

    static void addMembers(Labelled owner, const JSONObject& object, std::vector<Labelled>& rest) {
        object.forEachNamed({}, [&](Name name, const JSONValue& value) {
            if (name == "fieldName" && value.text()) {
                owner = {.label = *value.text(), .isGiven = true, .value = {}};
            }
        });
        object.forEachNamed({}, [&](Name name, const JSONValue& value) {
            const bool isDescription = name == "fieldName" || name == "type";
            if (!owner.isGiven || !isDescription) {
                rest.push_back({.label = owner.isGiven ? owner.label : name,
                                .isGiven = owner.isGiven,
                                .value = value});
            }
        });
    }

    void add(CSVField field, Name name, Name text) {
        _item.add({.field = field,
                   .extra = field == none ? customText : other,
                   .name = field == none ? _cell.name : Name("expirationDate"),
                   .label = name,
                   .text = text});
    }

    CSVItem& _item;
    const CSVEntry& _cell;
};

/// The note of a card or identity is JSON.
void finish(CSVItem& item) {
    const bool isIdentity = item.kindName() == "identity";
    if (item.kind() != CSVKind::card && !isIdentity) {
        return;
    }
    item.expand(note, [&](const CSVEntry& cell) {
        const auto document = documentIn(cell, item);
        if (const auto contents = document ? document->root().object() : std::nullopt) {
            ContentsReader(item, cell).read(*contents);
        } else {
            addAsItStands(cell, item);
        }
    });
}

constexpr auto columns = std::array{
    CSVColumn{.name = "type", .field = kind},
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "url", .field = url, .read = readAddressesBetween<',', ' '>},
    CSVColumn{.name = "autofillurls", .read = readAutofill},
    CSVColumn{.name = "email", .extra = email},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "totp", .extra = oneTimePassword},
    CSVColumn{.name = "createtime", .extra = createdAt},
    CSVColumn{.name = "modifytime", .extra = modifiedAt},
    CSVColumn{.name = "vault", .extra = folder},
};

constexpr auto kinds = std::array{
    CSVKindName{"login", CSVKind::login},     CSVKindName{"note", CSVKind::note},
    CSVKindName{"creditCard", CSVKind::card}, CSVKindName{"alias", CSVKind::other},
    CSVKindName{"identity", CSVKind::other},  CSVKindName{"custom", CSVKind::other},
    CSVKindName{"sshKey", CSVKind::other},    CSVKindName{"wifi", CSVKind::other},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::protonPassCSV,
        .product = "Proton Pass",
        .evidence = "the columns type, totp, createTime and modifyTime",
        .required = names,
        .columns = columns,
        .kinds = kinds,
        .finish = finish,
    },
};

} // namespace

constinit const CSVTables protonPassCSV = tables;

} // namespace Rellinor
