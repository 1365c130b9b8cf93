#include "Private/Importers/OnePassword/OnePUX.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "Private/Importers/OnePassword/OnePasswordDecoder.hpp"

namespace Rellinor {

namespace {

constexpr auto topMembers = std::to_array<std::string_view>({"accounts"});

constexpr std::string_view accountPart = "name and e-mail address of the account";

constexpr auto itemRules = std::to_array<MemberRule>({
    truthIn("favIndex", ExtraKind::favourite),
    factIn("createdAt", ExtraKind::createdAt),
    factIn("updatedAt", ExtraKind::modifiedAt),
    unreadIn("uuid", identifiersPart),
    ignored("categoryUuid"),
    ignored("trashed"),
});

constexpr auto overviewRules = std::to_array<MemberRule>({
    titleIn("title"),
    tagsIn("tags"),
    unreadIn("subtitle", "subtitles"), // which the product makes of a field
    unreadIn("icons", looksPart),
    ignored("ps"),
    ignored("pbe"),
    ignored("pgrng"),
    unreadIn("watchtowerExclusions", settingsPart),
});

constexpr auto detailsRules = std::to_array<MemberRule>({
    noteIn("notesPlain"),
    fieldIn("password", ItemField::password, ExtraKind::customSecret),
    unreadIn("passwordHistory", passwordHistoryPart),
    unreadIn("documentAttributes", attachmentsPart),
});

/// Members of a field that say how it is shown.
constexpr auto looksOfFields =
    std::to_array<std::string_view>({"indexAtSource", "guarded", "multiline", "dontGenerate",
                                     "inputTraits", "clipboardFilter", "placeholder"});

/// What a field of a section becomes by the name of its value.
ExtraKind kindOf(std::string_view id, std::string_view type) noexcept {
    if (id.starts_with("TOTP_")) {
        return ExtraKind::oneTimePassword;
    }
    return type == "sshKey" ? ExtraKind::customSecret : onePasswordKindOf(type);
}

/// Decodes one entry.
class Decoder {
public:
    Decoder(const OnePasswordCategory& category, VaultItemBuilder& builder) noexcept
        : _entry(category, builder), _builder(builder) {}

    void decode(const JSONObject& item) {
        item.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "overview") {
                _builder.withObject(value, "overview",
                                    [&](const JSONObject& overview) { decodeOverview(overview); });
            } else if (name == "details") {
                _builder.withObject(value, "details",
                                    [&](const JSONObject& details) { decodeDetails(details); });
            } else if (name == "state") {
                const bool isArchived = _builder.text(value, "state") == "archived";
                _builder.addFact(ExtraKind::archived, "state", isArchived ? "true" : "");
            } else if (!_builder.take(itemRules, name, value)) {
                _builder.passOver(value, otherMembersPart);
            }
        });
        _entry.finish();
    }

private:
    void decodeOverview(const JSONObject& overview) {
        overview.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "url") {
                _entry.setLocation(value, "url");
            } else if (name == "urls") {
                _builder.withObjects(value, "urls", [&](const JSONObject& address) {
                    _entry.addAddress(_builder.text(memberOf(address, "label"), "label"),
                                      _builder.text(memberOf(address, "url"), "url"));
                });
            } else if (!_builder.take(overviewRules, name, value)) {
                _builder.passOver(value, otherMembersPart);
            }
        });
    }

    void decodeDetails(const JSONObject& details) {
        details.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "loginFields") {
                _builder.withObjects(value, "loginFields",
                                     [&](const JSONObject& field) { decodeFormField(field); });
            } else if (name == "sections") {
                _builder.withObjects(value, "sections",
                                     [&](const JSONObject& section) { decodeSection(section); });
            } else if (!_builder.take(detailsRules, name, value)) {
                _builder.passOver(value, otherMembersPart);
            }
        });
    }

    void decodeFormField(const JSONObject& field) {
        const auto textIn = [&](std::string_view name) {
            return _builder.text(memberOf(field, name), "loginFields");
        };
        const JSONValue value = memberOf(field, "value");
        const std::string_view name = textIn("name");
        const std::string_view id = textIn("id");
        const std::string_view designation = textIn("designation");
        const std::string_view type = textIn("fieldType");
        const std::string_view label = name.empty() ? id : name;
        const auto parts = value.object(); // of an address that hides another
        if (parts) {
            _entry.addFormField(designation, label, type, memberOf(*parts, "email_address"));
            _builder.takeAll(std::array{ignored("email_address"), providerRule}, *parts);
        } else {
            _entry.addFormField(designation, label, type, value);
        }
        _builder.takeAll(std::array{ignored("name"), ignored("id"), ignored("designation"),
                                    ignored("fieldType"), ignored("value")},
                         field);
    }

    void decodeSection(const JSONObject& section) {
        section.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "fields") {
                _builder.withObjects(value, "fields",
                                     [&](const JSONObject& field) { decodeField(field); });
            } else if (name == "title") {
                _builder.passOver(value, sectionTitlesPart);
            } else if (name != "name" && name != "hideAddAnotherField") {
                _builder.passOver(value, otherMembersPart);
            }
        });
    }

    void decodeField(const JSONObject& field) {
        const std::string_view id = _builder.text(memberOf(field, "id"), "id");
        const std::string_view title = _builder.text(memberOf(field, "title"), "title");
        const std::string_view label = title.empty() ? id : title;
        _builder.withObject(memberOf(field, "value"), "value", [&](const JSONObject& values) {
            values.forEachNamed({}, [&](std::string_view type, const JSONValue& value) {
                decodeValue({.name = id, .label = label, .kind = kindOf(id, type)}, type, value);
            });
        });
        field.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            const bool isKnown = name == "id" || name == "title" || name == "value" ||
                                 std::ranges::find(looksOfFields, name) != looksOfFields.end();
            if (!isKnown) {
                _builder.passOver(value, otherMembersPart);
            }
        });
    }

    void decodeValue(const OnePasswordFieldFacts& facts, std::string_view type,
                     const JSONValue& value) {
        const auto parts = value.object();
        const bool isNoDate = type == "monthYear" && value.integer() == std::int64_t{0};
        if (type == "file") {
            _builder.passOver(value, attachmentsPart);
        } else if (type == "reference") {
            _builder.passOver(value, "references to other items");
        } else if (type == "ssoLogin" && parts) {
            _entry.addNamed(facts, memberOf(*parts, "provider"));
            _builder.passOver(memberOf(*parts, "item"), "references to other items");
        } else if (type == "email" && parts) {
            _entry.addNamed(facts, memberOf(*parts, "email_address"));
            _builder.takeAll(std::array{ignored("email_address"), providerRule}, *parts);
        } else if (!isNoDate) {
            _entry.addNamed(facts, value);
        }
    }

    static constexpr MemberRule providerRule = unreadIn("provider", "providers of addresses");

    OnePasswordDecoder _entry;
    VaultItemBuilder& _builder;
};

/// The entry itself, which old versions wrap in an object.
JSONValue unwrapped(const JSONValue& element) noexcept {
    const auto object = element.object();
    const JSONValue item = object ? memberOf(*object, "item") : JSONValue();
    return item.object() ? item : element;
}

/// Whether a file stands beside the entry, as in old versions.
bool hasFile(const JSONValue& element) noexcept {
    const auto object = element.object();
    return object && memberOf(*object, "file").object();
}

bool isFileAlone(const JSONValue& element) noexcept {
    return hasFile(element) && memberOf(*element.object(), "item").isNull();
}

} // namespace

JSONEntries OnePUX::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    JSONDocument document =
        readJSONMember(file, "export.data", memory, reporter, "export.attributes");
    std::vector<JSONEntry> entries;
    const auto forEachObject = [&](const JSONObject& holder, std::string_view name, auto&& visit) {
        const auto list = listOfEntriesIn(holder, name, reporter);
        if (!list) {
            return;
        }
        for (const JSONValue element : *list) {
            if (const auto object = element.object()) {
                visit(*object);
            } else {
                reporter.foundMany(FindingKind::valueOfOtherType, name, 1);
            }
        }
    };
    const auto addVault = [&](const JSONObject& vault) {
        const auto attributes = memberOf(vault, "attrs").object();
        const auto textIn = [&](std::string_view name) {
            return attributes ? memberOf(*attributes, name).text().value_or("") : "";
        };
        if (!textIn("desc").empty()) {
            reporter.unread("descriptions of vaults");
        }
        const auto items = listOfEntriesIn(vault, "items", reporter);
        if (!items) {
            return;
        }
        for (const JSONValue element : *items) {
            if (hasFile(element)) {
                reporter.unread(attachmentsPart);
            }
            if (!isFileAlone(element)) {
                entries.push_back({.value = unwrapped(element), .folder = textIn("name")});
            }
        }
    };
    forEachObject(topOf(document, topMembers), "accounts", [&](const JSONObject& account) {
        if (memberOf(account, "attrs").object()) {
            reporter.unread(accountPart);
        }
        forEachObject(account, "vaults", addVault);
    });
    return {std::move(document), std::move(entries), reporter};
}

void OnePUX::decode(const RawRecord& entry, VaultItemBuilder& builder) {
    const auto item = entry.value.object();
    if (!item) {
        builder.leaveOut(LeftOutReason::fieldOfOtherType);
        return;
    }
    const auto state = memberOf(*item, "state").text();
    if (memberOf(*item, "trashed").boolean() == true || state == "trashed" || state == "deleted") {
        builder.leaveOut(LeftOutReason::trashed);
        return;
    }
    const auto& category =
        onePasswordCategoryNumbered(builder.text(memberOf(*item, "categoryUuid"), "categoryUuid"));
    builder.addFact(ExtraKind::folder, "vault", entry.folder);
    Decoder(category, builder).decode(*item);
}

} // namespace Rellinor
