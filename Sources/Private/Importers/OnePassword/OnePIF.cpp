#include "Private/Importers/OnePassword/OnePIF.hpp"

#include <algorithm>
#include <array>

#include "Platform/File.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/OnePassword/OnePasswordDecoder.hpp"
#include "Private/Proxies/PIFFileProxy.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view identifiersAndHashes = "identifiers and hashes";
constexpr std::string_view pageForm = "form of the web page";
constexpr std::string_view looksOfFields = "identifiers and looks of fields";
constexpr std::string_view icon = "icon";

constexpr auto rules = std::to_array<MemberRule>({
    titleIn("title"),
    tagsIn("tags"),
    truthIn("faveIndex", ExtraKind::favourite),
    factIn("createdAt", ExtraKind::createdAt),
    factIn("updatedAt", ExtraKind::modifiedAt),
    ignored("typeName"),
    ignored("trashed"),
    unreadIn("uuid", identifiersAndHashes),
    unreadIn("keyID", identifiersAndHashes),
    unreadIn("locationKey", identifiersAndHashes),
    unreadIn("contentsHash", identifiersAndHashes),
    unreadIn("usernameHash", identifiersAndHashes),
});

/// What stands in the secure contents or around them.
constexpr auto unreadRules = std::to_array<MemberRule>({
    unreadIn("securityLevel", settingsPart),
    unreadIn("scope", settingsPart),
    unreadIn("autosubmit", settingsPart),
    unreadIn("passwordStrength", settingsPart),
    unreadIn("txTimestamp", settingsPart),
    unreadIn("generatorSettings", settingsPart),
    unreadIn("htmlMethod", pageForm),
    unreadIn("htmlForm", pageForm),
    unreadIn("htmlAction", pageForm),
    unreadIn("htmlName", pageForm),
    unreadIn("htmlID", pageForm),
    unreadIn("passwordHistory", passwordHistoryPart),
    unreadIn("attachments", attachmentsPart),
    unreadIn("attachmentUuids", attachmentsPart),
    unreadIn("files", attachmentsPart),
    unreadIn("customIcon", icon),
    unreadIn("icon", icon),
});

/// Decodes one entry.
class Decoder {
public:
    Decoder(const OnePasswordCategory& category, const FolderNames& folders,
            VaultItemBuilder& builder) noexcept
        : _entry(category, builder), _folders(folders), _builder(builder) {}

    void decode(const JSONObject& entry) {
        entry.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "secureContents") {
                _builder.withObject(value, "secureContents",
                                    [&](const JSONObject& contents) { decodeContents(contents); });
            } else if (name == "openContents") {
                _builder.withObject(value, "openContents", [&](const JSONObject& contents) {
                    contents.forEachNamed({}, [&](std::string_view inner, const JSONValue& fact) {
                        decodeFact(inner, fact);
                    });
                });
            } else {
                decodeFact(name, value);
            }
        });
        _entry.finish();
    }

private:
    /// A member outside the secure contents.
    void decodeFact(std::string_view name, const JSONValue& value) {
        if (name == "location") {
            _entry.setLocation(value, "location");
        } else if (name == "URLs") {
            decodeAddresses(value);
        } else if (name == "folderUuid") {
            _folders.addTo(_builder, value, "folderUuid");
        } else if (!_builder.take(rules, name, value) && !_builder.take(unreadRules, name, value)) {
            _builder.passOver(value, otherMembersPart);
        }
    }

    void decodeAddresses(const JSONValue& value) {
        _builder.withObjects(value, "URLs", [&](const JSONObject& address) {
            _entry.addAddress(_builder.text(memberOf(address, "label"), "label"),
                              _builder.text(memberOf(address, "url"), "url"));
        });
    }

    void decodeContents(const JSONObject& contents) {
        contents.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "fields") {
                _builder.withObjects(value, "fields",
                                     [&](const JSONObject& field) { decodeFormField(field); });
            } else if (name == "sections") {
                _builder.withObjects(value, "sections",
                                     [&](const JSONObject& section) { decodeSection(section); });
            } else if (name == "URLs") {
                decodeAddresses(value);
            } else if (name == "notesPlain") {
                _builder.assign(_builder.item().note, value, "notesPlain");
            } else if (!_builder.take(unreadRules, name, value)) {
                const bool isHidden = isHiddenInOnePassword(name);
                _entry.addNamed(
                    {.name = name,
                     .label = name,
                     .kind = isHidden ? ExtraKind::customSecret : ExtraKind::customText},
                    value);
            }
        });
    }

    void decodeFormField(const JSONObject& field) {
        const auto textIn = [&](std::string_view name) {
            return _builder.text(memberOf(field, name), "fields");
        };
        _entry.addFormField(textIn("designation"), textIn("name"), textIn("type"),
                            memberOf(field, "value"));
        tellOthers(field, {"designation", "name", "type", "value"});
    }

    void decodeSection(const JSONObject& section) {
        section.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (name == "fields") {
                _builder.withObjects(value, "sections",
                                     [&](const JSONObject& field) { decodeSectionField(field); });
            } else if (name == "title" && !_builder.text(value, "title").empty()) {
                _builder.tellUnread(sectionTitlesPart);
            }
        });
        tellOthers(section, {"fields", "title"});
    }

    void decodeSectionField(const JSONObject& field) {
        const auto textIn = [&](std::string_view name) {
            return _builder.text(memberOf(field, name), "sections");
        };
        const std::string_view name = textIn("n");
        const std::string_view label = textIn("t");
        const bool isOneTime = name.starts_with("TOTP_");
        const ExtraKind kind = onePasswordKindOf(textIn("k"));
        _entry.addNamed({.name = name,
                         .label = label.empty() ? name : label,
                         .kind = isOneTime ? ExtraKind::oneTimePassword : kind},
                        memberOf(field, "v"));
        tellOthers(field, {"k", "n", "t", "v"});
    }

    /// Tells of members of a field or section that are not read: identifiers and looks.
    void tellOthers(const JSONObject& object, std::initializer_list<std::string_view> known) {
        object.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
            if (std::ranges::find(known, name) == known.end() && !value.isNull()) {
                _builder.tellUnread(looksOfFields);
            }
        });
    }

    OnePasswordDecoder _entry;
    const FolderNames& _folders;
    VaultItemBuilder& _builder;
};

/// The text of an export, which a folder may hold.
ExportFile dataOf(const ExportFile& file) {
    if (file.url()) {
        const URL data = file.url()->appendingPathComponent("data.1pif");
        if (isReadableFile(data.path())) {
            return ExportFile::atPath(data);
        }
    }
    return file;
}

} // namespace

JSONRecords OnePIF::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    PIFLines* const lines = reportPIFLines(&reporter);
    PIFRecords parsed =
        PIFFileProxy::records(dataOf(file), {}, memory, lines, largestFileFor(&reporter));
    if (parsed.otherLines > 0) {
        reporter.unread("lines that are no record", parsed.otherLines);
    }
    const JSONObjects records = parsed.document.root().objects().value();
    for (const JSONObject& record : records) {
        const auto textIn = [&](std::string_view name) { return memberOf(record, name).text(); };
        const auto uuid = textIn("uuid");
        const auto title = textIn("title");
        if (onePasswordCategoryOf(textIn("typeName").value_or("")).shape ==
                OnePasswordShape::folder &&
            uuid && title) {
            _folders.add(*uuid, *title);
        }
    }
    return {std::move(parsed.document), records};
}

void OnePIF::decode(const RawRecord& entry, VaultItemBuilder& builder) const {
    const JSONValue trashed = memberOf(entry, "trashed");
    const auto& category =
        onePasswordCategoryOf(builder.text(memberOf(entry, "typeName"), "typeName"));
    if (trashed.boolean() == true || category.shape == OnePasswordShape::folder) {
        builder.leaveOut(category.shape == OnePasswordShape::folder ? LeftOutReason::placeholder
                                                                    : LeftOutReason::trashed);
        return;
    }
    if (!trashed.boolean() && !trashed.isNull()) {
        builder.otherType("trashed");
    }
    Decoder(category, _folders, builder).decode(entry);
}

} // namespace Rellinor
