#include "Private/Importers/ProtonPass/ProtonPassJSON.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/CardDate.hpp"

namespace Rellinor {

namespace {

constexpr auto topMembers =
    std::to_array<std::string_view>({"version", "userId", "encrypted", "vaults"});

struct Kind {
    std::string_view type;
    ItemShape shape;
    std::string_view name;
};

constexpr auto kinds = std::to_array<Kind>({
    {"login", ItemShape::login, "Login"},
    {"note", ItemShape::note, "Note"},
    {"creditCard", ItemShape::card, "Card"},
    {"alias", ItemShape::other, "Alias"},
    {"identity", ItemShape::other, "Identity"},
    {"sshKey", ItemShape::other, "SSH Key"},
    {"wifi", ItemShape::other, "Wi-Fi"},
    {"custom", ItemShape::other, "Custom item"},
});

constexpr Kind unknownKind{"", ItemShape::other, "unknown kind"};

constexpr auto itemRules = std::to_array<MemberRule>({
    valueIn("aliasEmail", ExtraKind::email),
    factIn("createTime", ExtraKind::createdAt),
    factIn("modifyTime", ExtraKind::modifiedAt),
    truthIn("pinned", ExtraKind::favourite),
    unreadIn("itemId", identifiersPart),
    unreadIn("shareId", identifiersPart),
    unreadIn("files", attachmentsPart),
    ignored("state"),
    ignored("contentFormatVersion"),
    ignored("shareCount"),
});

constexpr auto metadataRules = std::to_array<MemberRule>({
    titleIn("name"),
    noteIn("note"),
    unreadIn("itemUuid", identifiersPart),
});

constexpr auto loginRules = std::to_array<MemberRule>({
    fieldIn("itemUsername", ItemField::username, ExtraKind::furtherUserName),
    fieldIn("username", ItemField::username, ExtraKind::furtherUserName), // before version 1.18
    valueIn("itemEmail", ExtraKind::email),
    fieldIn("password", ItemField::password, ExtraKind::customSecret),
    valueIn("totpUri", ExtraKind::oneTimePassword),
    unreadIn("passkeys", passkeysPart),
});

constexpr auto cardRules = std::to_array<MemberRule>({
    fieldIn("cardholderName", ItemField::cardHolder),
    fieldIn("number", ItemField::cardNumber, ExtraKind::customSecret),
    fieldIn("verificationNumber", ItemField::cvv, ExtraKind::customSecret),
    fieldIn("pin", ItemField::pin, ExtraKind::customSecret),
    valueIn("cardType", ExtraKind::customText),
});

MemberRules rulesOf(ItemShape shape) noexcept {
    if (shape == ItemShape::login) {
        return loginRules;
    }
    return shape == ItemShape::card ? MemberRules(cardRules) : MemberRules();
}

ExtraKind kindOfField(std::string_view type) noexcept {
    if (type == "totp") {
        return ExtraKind::oneTimePassword;
    }
    return type == "hidden" ? ExtraKind::customSecret : ExtraKind::customText;
}

void decodeField(const JSONObject& field, VaultItemBuilder& builder) {
    const std::string_view label = builder.text(memberOf(field, "fieldName"), "fieldName");
    const ExtraKind kind = kindOfField(builder.text(memberOf(field, "type"), "type"));
    const JSONValue data = memberOf(field, "data");
    const auto parts = data.object();
    if (parts) {
        parts->forEachNamed({}, [&](std::string_view /*name*/, const JSONValue& value) {
            builder.addCustom(kind, label, value, "data");
        });
    } else {
        builder.addCustom(kind, label, data, "data");
    }
    builder.takeAll(std::array{ignored("fieldName"), ignored("type"), ignored("data")}, field);
}

void decodeFields(const JSONValue& fields, VaultItemBuilder& builder) {
    builder.withObjects(fields, "extraFields",
                        [&](const JSONObject& field) { decodeField(field, builder); });
}

void decodeSection(const JSONObject& section, VaultItemBuilder& builder) {
    section.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "sectionFields") {
            decodeFields(value, builder);
        } else {
            builder.passOver(value, name == "sectionName" ? sectionTitlesPart : otherMembersPart);
        }
    });
}

/// The date of a card. Older versions write the month first, without anything between.
void decodeDate(std::string_view text, VaultItem& item) {
    constexpr std::size_t lengthOfMonth = 2;
    constexpr std::size_t lengthOfBoth = 6;

    const std::string_view month = text.substr(0, lengthOfMonth);
    const std::string_view year = text.substr(month.size());
    if (text.size() == lengthOfBoth && cardDate(month, year)) {
        item[ItemField::expiryMonth] = month;
        item[ItemField::expiryYear] = year;
    } else {
        item[ItemField::expiry] = text;
    }
}

void decodeContent(const JSONObject& content, VaultItemBuilder& builder) {
    VaultItem& item = builder.item();
    const MemberRules rules = rulesOf(item.shape);
    const auto isFields = [](std::string_view name) {
        return name == "extraPersonalDetails" || name == "extraAddressDetails" ||
               name == "extraContactDetails" || name == "extraWorkDetails";
    };
    content.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "urls") {
            builder.withElements(value, "urls", [&](const JSONValue& address) {
                builder.addAddress("urls", builder.text(address, "urls"));
            });
        } else if (name == "autofillUrls") {
            builder.withObjects(value, "autofillUrls", [&](const JSONObject& address) {
                builder.takeAll(std::array{addressIn("url"), unreadIn("mode", settingsPart)},
                                address);
            });
        } else if (name == "sections" || name == "extraSections") {
            builder.withObjects(value, "sections", [&](const JSONObject& section) {
                decodeSection(section, builder);
            });
        } else if (isFields(name)) {
            decodeFields(value, builder);
        } else if (name == "expirationDate" && item.shape == ItemShape::card) {
            decodeDate(builder.scalar(value, "expirationDate"), item);
        } else if (!builder.take(rules, name, value)) {
            builder.addAny(ExtraKind::customText, name, value, "content");
        }
    });
}

} // namespace

JSONEntries ProtonPassJSON::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    return entriesOf(readJSON(file, memory, reporter), reporter);
}

JSONEntries ProtonPassZip::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    return entriesOf(readJSONMember(file, "data.json", memory, reporter), reporter);
}

JSONEntries ProtonPassJSON::entriesOf(JSONDocument document, Reporter& reporter) {
    const JSONObject top = topOf(document, topMembers);
    if (memberOf(top, "encrypted").boolean() == true) {
        throw ReadError(FailureReason::encrypted);
    }
    std::vector<JSONEntry> entries;
    const auto addVault = [&](const JSONObject& vault) {
        const JSONValue name = memberOf(vault, "name");
        if (!name.text() && !name.isNull()) {
            reporter.foundMany(FindingKind::valueOfOtherType, "name", 1);
        }
        if (!memberOf(vault, "description").text().value_or("").empty()) {
            reporter.unread("descriptions of vaults");
        }
        if (const auto items = listOfEntriesIn(vault, "items", reporter)) {
            for (const JSONValue item : *items) {
                entries.push_back({.value = item, .folder = name.text().value_or("")});
            }
        }
    };
    const auto vaults = memberOf(top, "vaults").object();
    if (!vaults) {
        reporter.foundMany(FindingKind::valueOfOtherType, "vaults", 1);
        return {std::move(document), std::move(entries), reporter};
    }
    vaults->forEachNamed({}, [&](std::string_view /*identifier*/, const JSONValue& value) {
        if (const auto vault = value.object()) {
            addVault(*vault);
        } else {
            reporter.foundMany(FindingKind::valueOfOtherType, "vaults", 1);
        }
    });
    return {std::move(document), std::move(entries), reporter};
}

void ProtonPassJSON::decode(const RawRecord& entry, VaultItemBuilder& builder) {
    constexpr std::int64_t trashed = 2;

    const auto item = entry.value.object();
    if (!item) {
        builder.leaveOut(LeftOutReason::fieldOfOtherType);
        return;
    }
    if (memberOf(*item, "state").integer() == trashed) {
        builder.leaveOut(LeftOutReason::trashed);
        return;
    }
    const auto decodeData = [&](const JSONObject& data) {
        const auto type = builder.text(memberOf(data, "type"), "type");
        const auto found = std::ranges::find(kinds, type, &Kind::type);
        const Kind& kind = found != kinds.end() ? *found : unknownKind;
        builder.item().shape = kind.shape;
        builder.item().kind = kind.name;
        data.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "metadata") {
                builder.withObject(value, "metadata", [&](const JSONObject& metadata) {
                    builder.takeAll(metadataRules, metadata);
                });
            } else if (name == "content") {
                builder.withObject(value, "content", [&](const JSONObject& content) {
                    decodeContent(content, builder);
                });
            } else if (name == "extraFields") {
                decodeFields(value, builder);
            } else if (name == "platformSpecific") {
                builder.passOver(value, settingsPart);
            } else if (name != "type") {
                builder.passOver(value, otherMembersPart);
            }
        });
    };
    builder.item().kind = unknownKind.name;
    builder.addFact(ExtraKind::folder, "vault", entry.folder);
    item->forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (name == "data") {
            builder.withObject(value, "data", decodeData);
        } else if (!builder.take(itemRules, name, value)) {
            builder.passOver(value, otherMembersPart);
        }
    });
}

} // namespace Rellinor
