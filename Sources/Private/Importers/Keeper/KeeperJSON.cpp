#include "Private/Importers/Keeper/KeeperJSON.hpp"

#include <algorithm>
#include <array>
#include <iterator>

#include "Private/Importers/NestedValues.hpp"

namespace Rellinor {

namespace {

constexpr auto topMembers = std::to_array<std::string_view>({"shared_folders", "records"});

struct Kind {
    std::string_view type;
    ItemShape shape;
    std::string_view name;
};

constexpr auto kinds = std::to_array<Kind>({
    {"", ItemShape::login, "Login"}, // records of old versions have no type
    {"login", ItemShape::login, "Login"},
    {"bankCard", ItemShape::card, "Payment Card"},
    {"encryptedNotes", ItemShape::note, "Secure Note"},
    {"bankAccount", ItemShape::other, "Bank Account"},
    {"address", ItemShape::other, "Address"},
    {"birthCertificate", ItemShape::other, "Birth Certificate"},
    {"contact", ItemShape::other, "Contact"},
    {"databaseCredentials", ItemShape::other, "Database"},
    {"driverLicense", ItemShape::other, "Driver's License"},
    {"file", ItemShape::other, "File Attachment"},
    {"healthInsurance", ItemShape::other, "Health Insurance"},
    {"membership", ItemShape::other, "Membership"},
    {"passport", ItemShape::other, "Passport"},
    {"photo", ItemShape::other, "Photo"},
    {"serverCredentials", ItemShape::other, "Server"},
    {"softwareLicense", ItemShape::other, "Software License"},
    {"sshKeys", ItemShape::other, "SSH Keys"},
    {"ssnCard", ItemShape::other, "Identity Card"},
    {"wifiCredentials", ItemShape::other, "Wi-Fi Credentials"},
});

constexpr Kind unknownKind{"", ItemShape::other, "unknown kind"};

constexpr auto recordRules = std::to_array<MemberRule>({
    titleIn("title"),
    fieldIn("login", ItemField::username, ExtraKind::furtherUserName),
    fieldIn("password", ItemField::password, ExtraKind::customSecret),
    addressIn("login_url"),
    factIn("last_modified", ExtraKind::modifiedAt),
    unreadIn("uid", identifiersPart),
    unreadIn("attachments", attachmentsPart),
    unreadIn("references", "references to other records"),
    unreadIn("schema", settingsPart),
    ignored("$type"),
    ignored("notes"),
});

constexpr auto paymentRules = std::to_array<MemberRule>({
    fieldIn("cardNumber", ItemField::cardNumber, ExtraKind::customSecret),
    fieldIn("cardExpirationDate", ItemField::expiry),
    fieldIn("cardSecurityCode", ItemField::cvv, ExtraKind::customSecret),
});

constexpr auto folderRules = std::to_array<MemberRule>({
    factIn("folder", ExtraKind::folder),
    factIn("shared_folder", ExtraKind::folder),
    unreadIn("can_edit", settingsPart),
    unreadIn("can_share", settingsPart),
});

/// What the name of a custom field tells: `$type:label:number`, or a label alone.
struct FieldName {
    std::string_view type; ///< empty if there is none
    std::string_view label;
};

FieldName fieldNameOf(std::string_view name) noexcept {
    if (name == "TFC:Keeper") {
        return {.type = "oneTimeCode", .label = name};
    }
    if (!name.starts_with('$')) {
        return {.type = {}, .label = name};
    }
    const std::size_t colon = name.find(':');
    const std::string_view type =
        name.substr(1, colon == std::string_view::npos ? colon : colon - 1);
    std::string_view label;
    if (colon != std::string_view::npos) {
        label = name.substr(colon + 1);
        const std::size_t number = label.rfind(':');
        const bool isNumbered =
            number != std::string_view::npos && number + 1 < label.size() &&
            label.find_first_not_of("0123456789", number + 1) == std::string_view::npos;
        label = label.substr(0, isNumbered ? number : label.size());
    }
    return {.type = type, .label = label.empty() ? type : label};
}

ExtraKind kindOf(std::string_view type) noexcept {
    struct TypeKind {
        std::string_view type;
        ExtraKind kind;
    };

    static constexpr TypeKind types[] = {
        {"oneTimeCode", ExtraKind::oneTimePassword},
        {"otp", ExtraKind::oneTimePassword},
        {"url", ExtraKind::furtherURL},
        {"email", ExtraKind::email},
        {"phone", ExtraKind::phone},
        {"login", ExtraKind::furtherUserName},
        {"password", ExtraKind::customSecret},
        {"secret", ExtraKind::customSecret},
        {"pinCode", ExtraKind::customSecret},
        {"keyPair", ExtraKind::customSecret},
        {"securityQuestion", ExtraKind::customSecret},
    };
    const auto* const found = std::ranges::find(types, type, &TypeKind::type);
    return found != std::end(types) ? found->kind : ExtraKind::customText;
}

ItemField fieldOf(const FieldName& name) noexcept {
    if (name.type == "pinCode") {
        return ItemField::pin;
    }
    return name.type == "text" && name.label == "cardholderName" ? ItemField::cardHolder
                                                                 : ItemField::none;
}

void decodePayment(const JSONValue& value, VaultItemBuilder& builder) {
    forEachNested(value, [&](const JSONValue& next, auto& held) {
        if (const auto elements = next.elements()) {
            held.assign(elements->begin(), elements->end());
            return;
        }
        builder.withObject(next, "custom_fields", [&](const JSONObject& payment) {
            payment.forEachNamed({}, [&](std::string_view name, const JSONValue& part) {
                if (!builder.take(paymentRules, name, part)) {
                    builder.addAny(ExtraKind::customText, name, part, "custom_fields");
                }
            });
        });
    });
}

void decodeCustomField(std::string_view name, const JSONValue& value, VaultItemBuilder& builder) {
    VaultItem& item = builder.item();
    const FieldName field = fieldNameOf(name);
    const bool isText = value.text().has_value();
    if (field.type == "paymentCard" && item.shape == ItemShape::card) {
        decodePayment(value, builder);
    } else if (field.type == "note" && item.shape == ItemShape::note && isText &&
               item.note.empty()) {
        item.note = *value.text();
    } else if (field.type == "passkey") {
        builder.passOver(value, passkeysPart);
    } else if (field.type == "url" && isText) {
        builder.addAddress(field.label, *value.text());
    } else {
        builder.addAny(kindOf(field.type), field.label, value, "custom_fields", fieldOf(field));
    }
}

/// The text of a secure note is a custom field, or its notes.
void decodeNotes(const JSONObject& record, VaultItemBuilder& builder) {
    const std::string_view notes = builder.text(memberOf(record, "notes"), "notes");
    if (builder.item().note.empty()) {
        builder.item().note = notes;
    } else {
        builder.addValue(ExtraKind::customText, "notes", notes);
    }
}

bool hasText(const JSONObject& record, std::string_view name) noexcept {
    return !memberOf(record, name).text().value_or("").empty();
}

} // namespace

JSONEntries KeeperJSON::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    JSONDocument document = readJSON(file, memory, reporter);
    const JSONObject top = topOf(document, topMembers);
    if (const auto folders = listIn(top, "shared_folders", reporter)) {
        for ([[maybe_unused]] const JSONValue folder : *folders) {
            reporter.unread("permissions of shared folders");
        }
    }
    std::vector<JSONEntry> entries;
    if (const auto records = listOfEntriesIn(top, "records", reporter)) {
        for (const JSONValue record : *records) {
            entries.push_back({.value = record});
        }
    }
    return {std::move(document), std::move(entries), reporter};
}

void KeeperJSON::decode(const RawRecord& entry, VaultItemBuilder& builder) {
    const auto record = entry.value.object();
    if (!record) {
        builder.leaveOut(LeftOutReason::fieldOfOtherType);
        return;
    }
    const auto type = builder.text(memberOf(*record, "$type"), "$type");
    const auto found = std::ranges::find(kinds, type, &Kind::type);
    const Kind& kind = found != kinds.end() ? *found : unknownKind;
    const bool isLogin =
        kind.shape == ItemShape::other && hasText(*record, "login") && hasText(*record, "password");
    VaultItem& item = builder.item();
    item.shape = isLogin ? ItemShape::login : kind.shape;
    item.kind = kind.name;

    record->forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "custom_fields") {
            builder.withObject(value, "custom_fields", [&](const JSONObject& fields) {
                fields.forEachNamed({}, [&](std::string_view field, const JSONValue& inner) {
                    decodeCustomField(field, inner, builder);
                });
            });
        } else if (name == "folders") {
            builder.withObjects(value, "folders", [&](const JSONObject& folder) {
                builder.takeAll(folderRules, folder);
            });
        } else if (!builder.take(recordRules, name, value)) {
            builder.passOver(value, otherMembersPart);
        }
    });
    decodeNotes(*record, builder);
}

} // namespace Rellinor
