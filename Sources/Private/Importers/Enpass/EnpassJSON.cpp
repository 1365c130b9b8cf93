#include "Private/Importers/Enpass/EnpassJSON.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Rellinor {

namespace {

constexpr auto topMembers = std::to_array<std::string_view>({"folders", "items"});

struct Kind {
    std::string_view category;
    ItemShape shape;
    std::string_view name;
};

constexpr auto kinds = std::to_array<Kind>({
    {"login", ItemShape::login, "Login"},
    {"password", ItemShape::login, "Password"},
    {"creditcard", ItemShape::card, "Credit Card"},
    {"note", ItemShape::note, "Note"},
    {"identity", ItemShape::other, "Identity"},
    {"finance", ItemShape::other, "Finance"},
    {"license", ItemShape::other, "License"},
    {"travel", ItemShape::other, "Travel"},
    {"computer", ItemShape::other, "Computer"},
    {"misc", ItemShape::other, "Miscellaneous"},
});

constexpr Kind unknownKind{"", ItemShape::other, "unknown kind"};

constexpr auto itemRules = std::to_array<MemberRule>({
    titleIn("title"),
    noteIn("note"),
    truthIn("favorite", ExtraKind::favourite),
    truthIn("archived", ExtraKind::archived),
    factIn("createdAt", ExtraKind::createdAt),
    factIn("updated_at", ExtraKind::modifiedAt),
    unreadIn("uuid", identifiersPart),
    unreadIn("icon", looksPart),
    unreadIn("attachments", attachmentsPart),
    unreadIn("subtitle", "subtitles"), // which the product makes of a field
    ignored("auto_submit"),
    ignored("category"),
    ignored("template_type"),
    ignored("trashed"),
});

constexpr auto fieldRules = std::to_array<MemberRule>({
    ignored("label"),
    ignored("type"),
    ignored("value"),
    ignored("deleted"),
    ignored("order"),
    ignored("sensitive"),
    ignored("uid"),
    ignored("updated_at"),
    ignored("value_updated_at"),
    unreadIn("history", passwordHistoryPart),
    unreadIn("icon", looksPart),
});

/// What a field becomes by its type.
struct FieldType {
    std::string_view type;
    ItemField field;
};

constexpr auto fieldTypes = std::to_array<FieldType>({
    {"username", ItemField::username},
    {"password", ItemField::password},
    {"ccName", ItemField::cardHolder},
    {"ccNumber", ItemField::cardNumber},
    {"ccCvc", ItemField::cvv},
    {"ccPin", ItemField::pin},
    {"ccExpiry", ItemField::expiry},
});

ItemField fieldOf(std::string_view type) noexcept {
    const auto found = std::ranges::find(fieldTypes, type, &FieldType::type);
    return found != fieldTypes.end() ? found->field : ItemField::none;
}

ExtraKind kindOf(std::string_view type, bool isSensitive) noexcept {
    if (type == "username") {
        return ExtraKind::furtherUserName;
    }
    if (type == "email") {
        return ExtraKind::email;
    }
    if (type == "phone") {
        return ExtraKind::phone;
    }
    if (type == "totp") {
        return ExtraKind::oneTimePassword;
    }
    const bool isSecret = isSensitive || type == "password" || type == "pin" || type == "ccCvc" ||
                          type == "ccPin" || type == "ccTxnpassword";
    return isSecret ? ExtraKind::customSecret : ExtraKind::customText;
}

/// Whether a value is 1, which says that something is gone.
bool isOne(const JSONValue& value) noexcept {
    return value.integer() == std::int64_t{1} || value.boolean() == true;
}

/// The same. The reporter is told of a value that says nothing.
bool isOne(const JSONValue& value, std::string_view name, VaultItemBuilder& builder) {
    if (!isOne(value) && value.integer() != std::int64_t{0} && !value.boolean() &&
        !value.isNull()) {
        builder.otherType(name);
    }
    return isOne(value);
}

/// Whether a field that counts has this type and some value.
bool hasField(const JSONValue& fields, std::string_view type) noexcept {
    const auto elements = fields.elements();
    return elements && std::ranges::any_of(*elements, [&](const JSONValue& element) {
               const auto field = element.object();
               return field && memberOf(*field, "type").text() == type &&
                      !memberOf(*field, "value").text().value_or("").empty() &&
                      !isOne(memberOf(*field, "deleted"));
           });
}

void decodeField(const JSONObject& field, VaultItemBuilder& builder) {
    builder.takeAll(fieldRules, field);
    if (isOne(memberOf(field, "deleted"), "deleted", builder)) {
        builder.tellUnread("deleted fields");
        return;
    }
    const std::string_view type = builder.text(memberOf(field, "type"), "type");
    const std::string_view label = builder.text(memberOf(field, "label"), "label");
    const JSONValue value = memberOf(field, "value");
    if (type == "section") {
        builder.tellUnread(sectionTitlesPart);
        builder.addAny(ExtraKind::customText, label, value, "value");
    } else if (type == "url") {
        builder.addAddress(label, builder.text(value, "value"));
    } else {
        const bool isSensitive = builder.truth(memberOf(field, "sensitive"), "sensitive");
        builder.addAny(kindOf(type, isSensitive), label, value, "value", fieldOf(type));
    }
}

} // namespace

JSONEntries EnpassJSON::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    JSONDocument document = readJSON(file, memory, reporter);
    const JSONObject top = topOf(document, topMembers);

    struct Folder {
        std::string_view title;
        std::string_view parent;
    };

    std::unordered_map<std::string_view, Folder> folders;
    if (const auto list = listIn(top, "folders", reporter)) {
        for (const JSONValue element : *list) {
            const auto folder = element.object();
            const auto textIn = [&](std::string_view name) {
                return folder ? memberOf(*folder, name).text().value_or("") : "";
            };
            if (!textIn("uuid").empty()) {
                folders.emplace(textIn("uuid"),
                                Folder{.title = textIn("title"), .parent = textIn("parent_uuid")});
            }
        }
    }
    for (const auto& [uuid, folder] : folders) {
        constexpr int deepest = 32; // and an end where folders stand in each other

        std::string_view path = folder.title;
        auto around = folders.find(folder.parent);
        for (int depth = 0; depth < deepest && around != folders.end(); ++depth) {
            path = pathOf(around->second.title, path, memory);
            around = folders.find(around->second.parent);
        }
        _folders.add(uuid, path);
    }
    std::vector<JSONEntry> entries;
    if (const auto items = listOfEntriesIn(top, "items", reporter)) {
        for (const JSONValue item : *items) {
            entries.push_back({.value = item});
            useFolders(item);
        }
    }
    _folders.tellUnused(reporter);
    return {std::move(document), std::move(entries), reporter};
}

void EnpassJSON::useFolders(const JSONValue& element) {
    const auto item = element.object();
    const auto folders = item ? memberOf(*item, "folders").elements() : std::nullopt;
    if (folders) {
        std::ranges::for_each(*folders, [&](const JSONValue& folder) { _folders.use(folder); });
    }
}

void EnpassJSON::decode(const RawRecord& entry, VaultItemBuilder& builder) const {
    const auto item = entry.value.object();
    if (!item) {
        builder.leaveOut(LeftOutReason::fieldOfOtherType);
        return;
    }
    if (isOne(memberOf(*item, "trashed"), "trashed", builder)) {
        builder.leaveOut(LeftOutReason::trashed);
        return;
    }
    const auto category = builder.text(memberOf(*item, "category"), "category");
    const auto found = std::ranges::find(kinds, category, &Kind::category);
    const Kind& kind = found != kinds.end() ? *found : unknownKind;
    const JSONValue fields = memberOf(*item, "fields");
    const bool isLogin = kind.shape == ItemShape::other && hasField(fields, "username") &&
                         hasField(fields, "password");
    builder.item().shape = isLogin ? ItemShape::login : kind.shape;
    builder.item().kind = kind.name;

    item->forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "fields") {
            builder.withObjects(value, "fields",
                                [&](const JSONObject& field) { decodeField(field, builder); });
        } else if (name == "folders") {
            builder.withElements(value, "folders", [&](const JSONValue& element) {
                _folders.addTo(builder, element, "folders");
            });
        } else if (!builder.take(itemRules, name, value)) {
            builder.passOver(value, otherMembersPart);
        }
    });
}

} // namespace Rellinor
