#include "Private/Importers/KeePass/KeePassXML.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

/// What becomes of the text of an element in an entry.
constexpr auto factRules = std::to_array<MemberRule>({
    factIn("CreationTime", ExtraKind::createdAt),
    factIn("LastModificationTime", ExtraKind::modifiedAt),
    factIn("LastAccessTime", ExtraKind::lastUsedAt),
});

/// The strings that are the fields of a record.
struct StandardString {
    std::string_view key;
    ItemField field;
};

constexpr auto standardFields = std::to_array<StandardString>({
    {"UserName", ItemField::username},
    {"Password", ItemField::password},
    {"URL", ItemField::address},
});

/// The strings with the secret of a one-time password, of KeePass, KeePassXC and plug-ins.
constexpr auto secretsOfOneTimePasswords = std::to_array<std::string_view>({
    "otp",
    "TimeOtp-Secret",
    "TimeOtp-Secret-Hex",
    "TimeOtp-Secret-Base32",
    "TimeOtp-Secret-Base64",
    "HmacOtp-Secret",
    "HmacOtp-Secret-Hex",
    "HmacOtp-Secret-Base32",
    "HmacOtp-Secret-Base64",
    "TOTP Seed",
});

/// Elements of an entry that never arrive, and their parts.
struct UnreadElement {
    std::string_view name;
    std::string_view part;
};

constexpr auto unreadElements = std::to_array<UnreadElement>({
    {"UUID", identifiersPart},
    {"IconID", looksPart},
    {"CustomIconUUID", looksPart},
    {"ForegroundColor", looksPart},
    {"BackgroundColor", looksPart},
    {"Binary", attachmentsPart},
    {"History", "old versions of entries"},
    {"CustomData", "data of plug-ins"},
});

/// Elements of an entry that hold nothing that a person has put in.
constexpr auto plainElements =
    std::to_array<std::string_view>({"QualityCheck", "PreviousParentGroup"});

bool isPlain(std::string_view name) noexcept {
    return std::ranges::find(plainElements, name) != plainElements.end();
}

bool isTrue(std::string_view text) noexcept {
    return sameIgnoringCase(text, "True");
}

/// Finds the entries of a database.
class Walk {
public:
    Walk(const XMLElement& file, ImportMemory& memory, Reporter& reporter) noexcept
        : _memory(memory), _reporter(reporter) {
        const XMLElement* const meta = file.find("Meta");
        if (meta == nullptr) {
            return;
        }
        if (isTrue(meta->textOf("RecycleBinEnabled"))) {
            _recycleBin = meta->textOf("RecycleBinUUID");
        }
        for (const std::string_view name : {"DatabaseName", "DatabaseDescription"}) {
            if (!meta->textOf(name).empty()) {
                _reporter.unread("name and description of the database");
            }
        }
    }

    // The depth of an XML text is bounded, and so is this recursion.
    // NOLINTNEXTLINE(misc-no-recursion)
    void visit(const XMLElement& group, std::string_view around, bool isTrashed) {
        const std::string_view path = pathOf(around, group.textOf("Name"), _memory);
        const std::string_view identifier = group.textOf("UUID");
        const bool isBin = !_recycleBin.empty() && identifier == _recycleBin;
        if (!group.textOf("Notes").empty()) {
            _reporter.unread("notes of groups");
        }
        bool isEmpty = true;
        for (const XMLElement& element : group) {
            if (element.name() == "Entry") {
                _entries.push_back(
                    {.element = &element, .folder = path, .isTrashed = isTrashed || isBin});
                isEmpty = false;
            } else if (element.name() == "Group") {
                visit(element, path, isTrashed || isBin);
                isEmpty = false;
            }
        }
        if (isEmpty && !isTrashed && !isBin && !group.textOf("Name").empty()) {
            _reporter.unread("groups without entries");
        }
    }

    [[nodiscard]] std::vector<KeePassEntry> take() && noexcept { return std::move(_entries); }

private:
    std::vector<KeePassEntry> _entries;
    ImportMemory& _memory;
    Reporter& _reporter;
    std::string_view _recycleBin; // identifier of the group; empty if there is none
};

void addString(const XMLElement& string, VaultItemBuilder& builder) {
    VaultItem& item = builder.item();
    const std::string_view key = string.textOf("Key");
    const XMLElement* const value = string.find("Value");
    if (value == nullptr) {
        return;
    }
    if (isTrue(value->attribute("Protected"))) {
        builder.stillEncrypted("Value");
        return;
    }
    const std::string_view text = value->text();
    const bool isHidden = isTrue(value->attribute("ProtectInMemory"));
    const auto found = std::ranges::find(standardFields, key, &StandardString::key);
    if (key == "Title" && item.title.empty()) {
        item.title = text;
    } else if (key == "Notes" && item.note.empty()) {
        item.note = text;
    } else if (key == "KPEX_PASSKEY_PRIVATE_KEY_PEM") { // of KeePassXC
        builder.tellUnread(passkeysPart);
    } else if (std::ranges::find(secretsOfOneTimePasswords, key) !=
               secretsOfOneTimePasswords.end()) {
        builder.addValue(ExtraKind::oneTimePassword, key, text);
    } else {
        const ExtraKind kind = isHidden ? ExtraKind::customSecret : ExtraKind::customText;
        const bool isStandard = found != standardFields.end();
        builder.addField(isStandard ? found->field : ItemField::none, kind, key, text);
        if (text.empty() && !isStandard && key != "Title" && key != "Notes" && !key.empty()) {
            builder.tellUnread("names of empty fields");
        }
    }
}

/// The tags of an entry, with semicolons or commas between them.
void addTags(std::string_view tags, VaultItemBuilder& builder) {
    while (!tags.empty()) {
        const std::size_t end = std::min(tags.size(), tags.find_first_of(";,"));
        builder.addFact(ExtraKind::tag, "Tags", withoutBlanksAround(tags.substr(0, end)));
        tags.remove_prefix(std::min(tags.size(), end + 1));
    }
}

void addTimes(const XMLElement& times, VaultItemBuilder& builder) {
    for (const XMLElement& time : times) {
        const auto rule = std::ranges::find(factRules, time.name(), &MemberRule::name);
        if (rule != factRules.end()) {
            builder.addFact(rule->kind, rule->name, time.text());
        }
    }
    if (isTrue(times.textOf("Expires"))) {
        builder.addFact(ExtraKind::other, "ExpiryTime", times.textOf("ExpiryTime"));
    }
}

/// Whether an element has a text, of which 0 stands for none, or another element.
bool holdsSomething(const XMLElement& element) noexcept {
    const bool isNone = element.text().empty() || element.text() == "0";
    return !isNone || element.begin() != XMLElement::end();
}

} // namespace

KeePassEntries KeePassXML::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    auto contents = contentsOf(file, {}, reporter.limits().largestFile);
    if (!contents) {
        throw ReadError(contents.error());
    }
    const std::string_view text(contents->bytes().data(), contents->bytes().size());
    auto document = XMLDocument::parsed(text, memory);
    if (!document) {
        reportFailure(document.error(), text, reporter);
        throw ReadError(document.error());
    }
    const XMLElement& root = document->root();
    if (root.name() != "KeePassFile") {
        throw ReadError(FailureReason::wrongShape);
    }
    if (document->hasTextBesideElements()) {
        reporter.unread("text beside elements");
    }
    Walk walk(root, memory, reporter);
    for (const XMLElement& part : root) {
        for (const XMLElement& group : part) {
            if (part.name() == "Root" && group.name() == "Group") {
                walk.visit(group, "", false);
            }
        }
    }
    std::vector<KeePassEntry> entries = std::move(walk).take();
    reporter.expect(entries.size());
    return {*std::move(document), std::move(entries)};
}

void KeePassXML::decode(const RawRecord& entry, VaultItemBuilder& builder) {
    if (entry.isTrashed) {
        builder.leaveOut(LeftOutReason::trashed);
        return;
    }
    builder.item().shape = ItemShape::login;
    builder.addFact(ExtraKind::folder, "Group", entry.folder);
    for (const XMLElement& element : *entry.element) {
        const std::string_view name = element.name();
        const auto unread = std::ranges::find(unreadElements, name, &UnreadElement::name);
        if (name == "String") {
            addString(element, builder);
        } else if (name == "Times") {
            addTimes(element, builder);
        } else if (name == "Tags") {
            addTags(element.text(), builder);
        } else if (name == "OverrideURL") {
            builder.addValue(ExtraKind::furtherURL, "OverrideURL", element.text());
        } else if (name == "AutoType") {
            if (!element.textOf("DefaultSequence").empty() ||
                element.find("Association") != nullptr) {
                builder.tellUnread("auto-type");
            }
        } else if (holdsSomething(element) && !isPlain(name)) {
            builder.tellUnread(unread != unreadElements.end() ? unread->part : "other elements");
        }
    }
}

} // namespace Rellinor
