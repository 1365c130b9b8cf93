#include "Private/Importers/CredentialExchange/CredentialExchangeJSON.hpp"

#include <algorithm>
#include <array>

#include "Private/Importers/NestedValues.hpp"
#include "Private/Proxies/FileParts.hpp"
#include "Private/Proxies/ZipDirectory.hpp"

namespace Rellinor {

namespace {

constexpr auto topMembers = std::to_array<std::string_view>(
    {"version", "exporterRpId", "exporterDisplayName", "accounts", "items", "collections"});

constexpr std::string_view accountPart = "name and e-mail address of the account";
constexpr std::string_view extensionsPart = "extensions";

/// In how many collections an item is looked for: many items may have one identifier.
constexpr int mostFolders = 64;

/// A kind of credential.
struct Kind {
    std::string_view type;
    ItemShape shape; ///< of an item that has one, and none of those above
    std::string_view name;
};

/// In the order in which they decide what an item is.
constexpr auto kinds = std::to_array<Kind>({
    {"basic-auth", ItemShape::login, "Login"},
    {"credit-card", ItemShape::card, "Credit Card"},
    {"generated-password", ItemShape::login, "Password"},
    {"address", ItemShape::other, "Address"},
    {"api-key", ItemShape::other, "API Key"},
    {"drivers-license", ItemShape::other, "Driver's License"},
    {"identity-document", ItemShape::other, "Identity Document"},
    {"passport", ItemShape::other, "Passport"},
    {"person-name", ItemShape::other, "Name of a Person"},
    {"ssh-key", ItemShape::other, "SSH Key"},
    {"wifi", ItemShape::other, "Wi-Fi"},
    {"passkey", ItemShape::other, "Passkey"},
    {"note", ItemShape::note, "Note"},
    {"custom-fields", ItemShape::other, "Custom Fields"},
    {"file", ItemShape::other, "File"},
    {"item-reference", ItemShape::other, "Reference"},
    {"totp", ItemShape::note, "One-Time Password"},
});

constexpr Kind unknownKind{"", ItemShape::other, "unknown kind"};
constexpr Kind noKind{"", ItemShape::note, "Note"};

constexpr auto itemRules = std::to_array<MemberRule>({
    titleIn("title"),
    valueIn("subtitle", ExtraKind::customText),
    truthIn("favorite", ExtraKind::favourite),
    factIn("creationAt", ExtraKind::createdAt),
    factIn("modifiedAt", ExtraKind::modifiedAt),
    tagsIn("tags"),
    unreadIn("extensions", extensionsPart),
    unreadIn("id", identifiersPart),
});

/// What the fields of a credential are. Those of other credentials are values.
struct FieldRule {
    std::string_view type;
    std::string_view member;
    ItemField field;
};

constexpr auto fieldRules = std::to_array<FieldRule>({
    {"basic-auth", "username", ItemField::username},
    {"basic-auth", "password", ItemField::password},
    {"generated-password", "password", ItemField::password},
    {"credit-card", "number", ItemField::cardNumber},
    {"credit-card", "fullName", ItemField::cardHolder},
    {"credit-card", "verificationNumber", ItemField::cvv},
    {"credit-card", "pin", ItemField::pin},
    {"credit-card", "expiryDate", ItemField::expiry},
});

/// "pin" in Base64, by which 1Password names a field of its own.
constexpr std::string_view pinIdentifier = "cGlu";

ItemField fieldOf(std::string_view type, std::string_view member) noexcept {
    const auto found = std::ranges::find_if(fieldRules, [&](const FieldRule& rule) {
        return rule.type == type && rule.member == member;
    });
    return found != fieldRules.end() ? found->field : ItemField::none;
}

std::string_view typeOf(const JSONObject& credential) noexcept {
    return memberOf(credential, "type").text().value_or("");
}

/// Calls `visit` for each credential of an item that is an object.
void forEachCredential(const JSONObject& item, auto&& visit) {
    const auto credentials = memberOf(item, "credentials").elements();
    if (!credentials) {
        return;
    }
    for (const JSONValue element : *credentials) {
        if (const auto credential = element.object()) {
            visit(*credential);
        }
    }
}

bool hasCredential(const JSONObject& item, std::string_view type) {
    bool has = false;
    forEachCredential(
        item, [&](const JSONObject& credential) { has = has || typeOf(credential) == type; });
    return has;
}

const Kind& kindOf(const JSONObject& item) {
    const Kind* first = kinds.end();
    bool isUnknown = false;
    forEachCredential(item, [&](const JSONObject& credential) {
        const auto found = std::ranges::find(kinds, typeOf(credential), &Kind::type);
        isUnknown = isUnknown || found == kinds.end();
        first = std::min(first, found);
    });
    if (first != kinds.end() && (first->shape != ItemShape::note || !isUnknown)) {
        return *first;
    }
    return isUnknown ? unknownKind : noKind;
}

ExtraKind kindOfField(std::string_view fieldType) noexcept {
    if (fieldType == "concealed-string") {
        return ExtraKind::customSecret;
    }
    return fieldType == "email" ? ExtraKind::email : ExtraKind::customText;
}

/// Whether a member of a credential is a secret though it stands there as a plain text.
bool isPlainSecret(std::string_view member) noexcept {
    return member == "password" || member == "privateKey" || member == "key";
}

/// A field that is a text alone, or an object with the text and what is known of it.
void decodeField(const JSONValue& value, std::string_view label, ItemField field,
                 VaultItemBuilder& builder) {
    const auto object = value.object();
    if (!object) {
        const ExtraKind kind =
            isPlainSecret(label) ? ExtraKind::customSecret : ExtraKind::customText;
        builder.addAny(kind, label, value, "credentials", field);
        return;
    }
    const auto kind = kindOfField(builder.text(memberOf(*object, "fieldType"), "fieldType"));
    builder.addAny(kind, label, memberOf(*object, "value"), "value", field);
    builder.takeAll(std::array{ignored("id"), ignored("fieldType"), ignored("value"),
                               ignored("label"), unreadIn("extensions", extensionsPart)},
                    *object);
}

void decodeNote(const JSONValue& content, VaultItemBuilder& builder) {
    std::string_view& note = builder.item().note;
    const auto object = content.object();
    const JSONValue value = object ? memberOf(*object, "value") : content;
    if (note.empty()) {
        note = builder.text(value, "content");
    } else {
        builder.addAny(ExtraKind::customText, "note", value, "content");
    }
}

void decodeCustomField(const JSONObject& field, VaultItemBuilder& builder) {
    const std::string_view id = builder.text(memberOf(field, "id"), "id");
    const std::string_view label = builder.text(memberOf(field, "label"), "label");
    const bool isPin = id == pinIdentifier;
    const auto byType = kindOfField(builder.text(memberOf(field, "fieldType"), "fieldType"));
    const JSONValue value = memberOf(field, "value");
    // 1Password writes such fields.
    const bool isOneTime = value.text().value_or("").starts_with("otpauth://");
    builder.addAny(isOneTime ? ExtraKind::oneTimePassword : byType, label, value, "value",
                   isPin ? ItemField::pin : ItemField::none);
    builder.takeAll(std::array{ignored("id"), ignored("fieldType"), ignored("value"),
                               ignored("label"), unreadIn("extensions", extensionsPart)},
                    field);
}

bool isPin(const JSONValue& field) noexcept {
    const auto object = field.object();
    return object && memberOf(*object, "id").text() == pinIdentifier;
}

/// Which of the records of an item is built.
enum class Part : std::uint8_t {
    whole,
    loginBesideCard,
    cardBesideLogin,
};

void decodeCustomFields(const JSONObject& fields, Part part, VaultItemBuilder& builder) {
    fields.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "fields") {
            builder.withElements(value, "fields", [&](const JSONValue& field) {
                const bool belongs =
                    part == Part::whole || isPin(field) == (part == Part::cardBesideLogin);
                if (belongs) {
                    builder.withObject(field, "fields", [&](const JSONObject& object) {
                        decodeCustomField(object, builder);
                    });
                }
            });
        } else if (name == "label" && part != Part::cardBesideLogin) {
            builder.passOver(value, sectionTitlesPart);
        } else if (name == "extensions") {
            builder.passOver(value, extensionsPart);
        }
    });
}

void decodePasskey(const JSONObject& passkey, VaultItemBuilder& builder) {
    builder.tellUnread(passkeysPart);
    if (builder.item().shape == ItemShape::other) {
        for (const std::string_view name : {"rpId", "username", "userDisplayName"}) {
            builder.addValue(ExtraKind::customText, name,
                             builder.text(memberOf(passkey, name), "passkey"));
        }
    }
}

void decodeOneTimePassword(const JSONObject& password, VaultItemBuilder& builder) {
    builder.addValue(ExtraKind::oneTimePassword, "totp",
                     builder.text(memberOf(password, "secret"), "secret"));
    password.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name != "type" && name != "secret") {
            builder.addAny(ExtraKind::customText, name, value, "totp");
        }
    });
}

void decodeCredential(const JSONObject& credential, Part part, VaultItemBuilder& builder) {
    const std::string_view type = builder.text(memberOf(credential, "type"), "type");
    if (type == "custom-fields") {
        decodeCustomFields(credential, part, builder);
        return;
    }
    const bool isOfCard = type == "credit-card";
    if (part != Part::whole && isOfCard != (part == Part::cardBesideLogin)) {
        return; // the other record has it
    }
    if (type == "passkey") {
        decodePasskey(credential, builder);
    } else if (type == "totp") {
        decodeOneTimePassword(credential, builder);
    } else if (type == "file") {
        builder.tellUnread(attachmentsPart);
    } else if (type == "item-reference") {
        builder.tellUnread("references to other items");
    } else {
        credential.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "extensions") {
                builder.passOver(value, extensionsPart);
            } else if (type == "note" && name == "content") {
                decodeNote(value, builder);
            } else if (name != "type") {
                decodeField(value, name, fieldOf(type, name), builder);
            }
        });
    }
}

void decodeScope(const JSONObject& scope, VaultItemBuilder& builder) {
    scope.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "urls") {
            builder.withElements(value, "urls", [&](const JSONValue& address) {
                builder.addAddress("urls", builder.text(address, "urls"));
            });
        } else if (name == "androidApps") {
            builder.withObjects(value, "androidApps", [&](const JSONObject& app) {
                builder.takeAll(std::array{valueIn("bundleId", ExtraKind::customText),
                                           valueIn("name", ExtraKind::customText),
                                           unreadIn("certificate", identifiersPart)},
                                app);
            });
        } else {
            builder.passOver(value, otherMembersPart);
        }
    });
}

bool isArchive(const ExportFile& file) {
    const auto parts = FileParts::of(file);
    const auto beginning = parts ? parts->part(0, sizeOfZipHeader) : std::nullopt;
    return beginning && isZip(beginning->bytes());
}

} // namespace

JSONEntries CredentialExchangeJSON::read(const ExportFile& file, ImportMemory& memory,
                                         Reporter& reporter) {
    JSONDocument document = isArchive(file) ? readOnlyJSONMember(file, memory, reporter)
                                            : readJSON(file, memory, reporter);
    const JSONObject top = topOf(document, topMembers);
    std::vector<JSONEntry> entries;
    if (!memberOf(top, "items").isNowhere()) {
        addAccount(top, entries, memory, reporter);
    } else if (const auto accounts = listOfEntriesIn(top, "accounts", reporter)) {
        for (const JSONValue element : *accounts) {
            if (const auto account = element.object()) {
                addAccount(*account, entries, memory, reporter);
            } else {
                reporter.foundMany(FindingKind::valueOfOtherType, "accounts", 1);
            }
        }
    }
    return {std::move(document), std::move(entries), reporter};
}

void CredentialExchangeJSON::addAccount(const JSONObject& account, std::vector<JSONEntry>& entries,
                                        ImportMemory& memory, Reporter& reporter) {
    bool hasName = false;
    for (const std::string_view name : {"username", "email", "fullName"}) {
        hasName = hasName || !memberOf(account, name).text().value_or("").empty();
    }
    if (hasName) {
        reporter.unread(accountPart);
    }
    addCollections(account, memory, reporter);
    const auto items = listOfEntriesIn(account, "items", reporter);
    if (!items) {
        return;
    }
    for (const JSONValue element : *items) {
        const auto item = element.object();
        entries.push_back({.value = element});
        if (item && hasCredential(*item, "basic-auth") && hasCredential(*item, "credit-card")) {
            entries.push_back({.value = element, .isCardBesideLogin = true});
        }
    }
}

void CredentialExchangeJSON::addCollections(const JSONObject& account, ImportMemory& memory,
                                            Reporter& reporter) {
    struct Holder {
        JSONObject object;
        std::string_view list;
        std::string_view path;
    };

    forEachNested(Holder{account, "collections", ""}, [&](const Holder& holder, auto& held) {
        const std::string_view path =
            holder.list == "collections"
                ? ""
                : addCollection(holder.object, holder.path, memory, reporter);
        const auto collections = listIn(holder.object, holder.list, reporter);
        if (!collections) {
            return;
        }
        for (const JSONValue element : *collections) {
            if (const auto collection = element.object()) {
                held.push_back({*collection, "subCollections", path});
            } else {
                reporter.foundMany(FindingKind::valueOfOtherType, "collections", 1);
            }
        }
    });
}

/// Remembers what entries a collection has; returns the path of it.
std::string_view CredentialExchangeJSON::addCollection(const JSONObject& collection,
                                                       std::string_view path, ImportMemory& memory,
                                                       Reporter& reporter) {
    const std::string_view title = memberOf(collection, "title").text().value_or("");
    const std::string_view inner = pathOf(path, title, memory);
    const auto items = listIn(collection, "items", reporter);
    if (!title.empty() && (!items || items->begin() == items->end())) {
        reporter.unread("collections without entries of their own");
    }
    if (items) {
        for (const JSONValue link : *items) {
            const auto object = link.object();
            const auto item = object ? memberOf(*object, "item").text() : link.text();
            if (item) {
                _folders.emplace(*item, inner);
            }
        }
    }
    return inner;
}

void CredentialExchangeJSON::decode(const RawRecord& entry, VaultItemBuilder& builder) const {
    const auto item = entry.value.object();
    if (!item) {
        builder.leaveOut(LeftOutReason::fieldOfOtherType);
        return;
    }
    const bool isBoth = hasCredential(*item, "basic-auth") && hasCredential(*item, "credit-card");
    const Part beside = entry.isCardBesideLogin ? Part::cardBesideLogin : Part::loginBesideCard;
    const Part part = isBoth ? beside : Part::whole;
    const Kind& kind = kindOf(*item);
    builder.item().shape = entry.isCardBesideLogin ? ItemShape::card : kind.shape;
    builder.item().kind = kind.name;

    const auto id = memberOf(*item, "id").text();
    const auto [first, last] = _folders.equal_range(id.value_or(""));
    int folders = 0;
    for (auto folder = first; id && folder != last; ++folder) {
        if (++folders > mostFolders) {
            builder.tellUnread("further collections");
            break;
        }
        builder.addFact(ExtraKind::folder, "collections", folder->second);
    }
    item->forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "credentials") {
            builder.withObjects(value, "credentials", [&](const JSONObject& credential) {
                decodeCredential(credential, part, builder);
            });
        } else if (name == "scope") {
            if (part != Part::cardBesideLogin) {
                builder.withObject(value, "scope",
                                   [&](const JSONObject& scope) { decodeScope(scope, builder); });
            }
        } else if (!builder.take(itemRules, name, value)) {
            builder.passOver(value, otherMembersPart);
        }
    });
}

} // namespace Rellinor
