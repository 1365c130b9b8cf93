#include "Private/Importers/Bitwarden/BitwardenJSON.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "Private/Errors/ReadError.hpp"

namespace Rellinor {

namespace {

constexpr auto topMembers =
    std::to_array<std::string_view>({"encrypted", "folders", "collections", "items"});

/// A kind of entry: its number, and the member that holds what it has.
struct Kind {
    std::int64_t number;
    std::string_view member;
    ItemShape shape;
    std::string_view name;
};

constexpr auto kinds = std::to_array<Kind>({
    {1, "login", ItemShape::login, "Login"},
    {2, "secureNote", ItemShape::note, "Secure Note"},
    {3, "card", ItemShape::card, "Card"},
    {4, "identity", ItemShape::other, "Identity"},
    {5, "sshKey", ItemShape::other, "SSH Key"},
    {6, "bankAccount", ItemShape::other, "Bank Account"},
    {7, "driversLicense", ItemShape::other, "Driver's License"},
    {8, "passport", ItemShape::other, "Passport"},
});

constexpr Kind unknownKind{0, "", ItemShape::other, "unknown kind"};

constexpr auto itemRules = std::to_array<MemberRule>({
    titleIn("name"),
    noteIn("notes"),
    truthIn("favorite", ExtraKind::favourite),
    factIn("creationDate", ExtraKind::createdAt),
    factIn("revisionDate", ExtraKind::modifiedAt),
    unreadIn("id", identifiersPart),
    unreadIn("organizationId", identifiersPart),
    unreadIn("key", identifiersPart),
    unreadIn("passwordHistory", passwordHistoryPart),
    unreadIn("attachments", attachmentsPart),
    ignored("type"),
    ignored("deletedDate"),
});

constexpr auto loginRules = std::to_array<MemberRule>({
    fieldIn("username", ItemField::username, ExtraKind::furtherUserName),
    fieldIn("password", ItemField::password, ExtraKind::customSecret),
    valueIn("totp", ExtraKind::oneTimePassword),
    factIn("passwordRevisionDate", ExtraKind::other),
    unreadIn("fido2Credentials", passkeysPart),
});

constexpr auto cardRules = std::to_array<MemberRule>({
    fieldIn("cardholderName", ItemField::cardHolder),
    fieldIn("number", ItemField::cardNumber, ExtraKind::customSecret),
    fieldIn("expMonth", ItemField::expiryMonth),
    fieldIn("expYear", ItemField::expiryYear),
    fieldIn("code", ItemField::cvv, ExtraKind::customSecret),
});

constexpr auto noteRules = std::to_array<MemberRule>({
    ignored("type"), // always the same
});

/// The kind of an entry: that of its number, or else of what it holds.
const Kind& kindOf(const JSONObject& item, VaultItemBuilder& builder) {
    const JSONValue type = memberOf(item, "type");
    const auto byNumber = std::ranges::find(kinds, type.integer().value_or(0), &Kind::number);
    if (byNumber != kinds.end()) {
        return *byNumber;
    }
    if (!type.integer() && !type.isNull()) {
        builder.otherType("type");
    }
    const auto byMember = std::ranges::find_if(
        kinds, [&](const Kind& kind) { return memberOf(item, kind.member).object().has_value(); });
    return byMember != kinds.end() ? *byMember : unknownKind;
}

ExtraKind kindOfField(const JSONValue& type) noexcept {
    constexpr std::int64_t hidden = 1;
    return type.integer() == hidden ? ExtraKind::customSecret : ExtraKind::customText;
}

void decodeField(const JSONObject& field, VaultItemBuilder& builder) {
    const std::string_view label = builder.text(memberOf(field, "name"), "fields");
    builder.addCustom(kindOfField(memberOf(field, "type")), label, memberOf(field, "value"),
                      "fields");
    builder.takeAll(std::array{ignored("name"), ignored("type"), ignored("value"),
                               unreadIn("linkedId", "linked fields")},
                    field);
}

void decodeAddress(const JSONObject& address, VaultItemBuilder& builder) {
    builder.takeAll(std::array{addressIn("uri"), unreadIn("match", settingsPart),
                               unreadIn("uriChecksum", identifiersPart)},
                    address);
}

/// What an entry holds by its kind. What belongs to another kind arrives as it is named.
void decodeContents(MemberRules rules, const JSONObject& contents, VaultItemBuilder& builder) {
    contents.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "uris") {
            builder.withObjects(
                value, "uris", [&](const JSONObject& address) { decodeAddress(address, builder); });
        } else if (!builder.take(rules, name, value)) {
            builder.addAny(ExtraKind::customText, name, value, "contents");
        }
    });
}

bool isRule(std::string_view name) noexcept {
    return std::ranges::find(itemRules, name, &MemberRule::name) != itemRules.end();
}

MemberRules rulesOf(std::string_view member) noexcept {
    if (member == "login") {
        return loginRules;
    }
    if (member == "card") {
        return cardRules;
    }
    return member == "secureNote" ? MemberRules(noteRules) : MemberRules();
}

} // namespace

JSONEntries BitwardenJSON::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    return entriesOf(readJSON(file, memory, reporter), reporter);
}

JSONEntries BitwardenZip::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    return entriesOf(readJSONMember(file, "data.json", memory, reporter), reporter);
}

JSONEntries BitwardenJSON::entriesOf(JSONDocument document, Reporter& reporter) {
    const JSONObject top = topOf(document, topMembers);
    if (memberOf(top, "encrypted").boolean() == true) {
        throw ReadError(FailureReason::encrypted);
    }
    for (const std::string_view list : {"folders", "collections"}) {
        const auto folders = listIn(top, list, reporter);
        if (!folders) {
            continue;
        }
        for (const JSONValue folder : *folders) {
            const auto object = folder.object();
            const auto id = object ? memberOf(*object, "id").text() : std::nullopt;
            const auto name = object ? memberOf(*object, "name").text() : std::nullopt;
            if (id && name) {
                _folders.add(*id, *name);
            }
        }
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

void BitwardenJSON::useFolders(const JSONValue& element) {
    const auto item = element.object();
    if (!item) {
        return;
    }
    _folders.use(memberOf(*item, "folderId"));
    if (const auto collections = memberOf(*item, "collectionIds").elements()) {
        std::ranges::for_each(*collections,
                              [&](const JSONValue& collection) { _folders.use(collection); });
    }
}

void BitwardenJSON::decode(const RawRecord& entry, VaultItemBuilder& builder) const {
    const auto item = entry.value.object();
    if (!item) {
        builder.leaveOut(LeftOutReason::fieldOfOtherType);
        return;
    }
    if (!builder.text(memberOf(*item, "deletedDate"), "deletedDate").empty()) {
        builder.leaveOut(LeftOutReason::trashed);
        return;
    }
    const Kind& kind = kindOf(*item, builder);
    builder.item().shape = kind.shape;
    builder.item().kind = kind.name;

    item->forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "folderId") {
            _folders.addTo(builder, value, "folderId");
        } else if (name == "collectionIds") {
            builder.withElements(value, "collectionIds", [&](const JSONValue& collection) {
                _folders.addTo(builder, collection, "collectionIds");
            });
        } else if (name == "archivedDate") {
            const std::string_view time = builder.text(value, "archivedDate");
            builder.addFact(ExtraKind::archived, "archivedDate", time.empty() ? "" : "true");
            builder.addFact(ExtraKind::other, "archivedDate", time);
        } else if (name == "reprompt") {
            if (builder.truth(value, "reprompt")) {
                builder.tellUnread(settingsPart);
            }
        } else if (name == "fields") {
            builder.withObjects(value, "fields",
                                [&](const JSONObject& field) { decodeField(field, builder); });
        } else if (const auto contents = value.object(); contents && !isRule(name)) {
            decodeContents(rulesOf(name), *contents, builder);
        } else if (name == kind.member && !value.isNull()) {
            builder.otherType(kind.member);
        } else if (!builder.take(itemRules, name, value)) {
            builder.passOver(value, otherMembersPart);
        }
    });
}

} // namespace Rellinor
