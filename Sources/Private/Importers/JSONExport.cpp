#include "Private/Importers/JSONExport.hpp"

#include <algorithm>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Text/Letters.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

template <typename Value>
Value valueOrThrow(std::expected<Value, FailureReason> value) {
    if (!value) {
        throw ReadError(value.error());
    }
    return *std::move(value);
}

std::string_view textOf(std::span<const char> bytes) noexcept {
    const std::string_view text(bytes.data(), bytes.size());
    return text.substr(lengthOfByteOrderMark(text));
}

JSONDocument parsedMember(ExportMembers& members, const ZipMember* member, ImportMemory& memory,
                          Reporter& reporter, std::string_view beside) {
    if (member == nullptr) {
        const bool isEncrypted = std::ranges::any_of(members.all(), [](const ZipMember& other) {
            return hasExtension(other.name, ".pgp") || hasExtension(other.name, ".jwe");
        });
        throw ReadError(isEncrypted ? FailureReason::encrypted : FailureReason::wrongShape);
    }
    for (const ZipMember& other : members.all()) {
        const bool isBeside = !beside.empty() && other.isNamed(beside);
        if (&other != member && !other.isFolder() && !isBeside) {
            reporter.unread(attachmentsPart);
        }
    }
    return parsedJSON(textOf(valueOrThrow(members.read(*member, memory))), memory, reporter);
}

} // namespace

ExportMembers membersOf(const ExportFile& file, const Reporter& reporter) {
    const ReadLimits& limits = reporter.limits();
    return valueOrThrow(ExportMembers::opened(file, limits.largestFile, limits.largestExpansion));
}

std::string_view jsonTextOf(const ExportFile& file, ImportMemory& memory,
                            const Reporter& reporter) {
    return textOf(memory.adopt(valueOrThrow(contentsOf(file, {}, reporter.limits().largestFile))));
}

JSONDocument parsedJSON(std::string_view text, ImportMemory& memory, Reporter& reporter) {
    auto document = JSONDocument::parsed(text, {}, memory, JSONExtent::everything);
    if (!document) {
        const ReadFailure failure = failureOf(document.error(), text);
        reportFailure(failure, text, reporter);
        throw ReadError(failure);
    }
    return *std::move(document);
}

JSONDocument readJSON(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    return parsedJSON(jsonTextOf(file, memory, reporter), memory, reporter);
}

JSONDocument readJSONMember(const ExportFile& archive, std::string_view member,
                            ImportMemory& memory, Reporter& reporter, std::string_view beside) {
    ExportMembers members = membersOf(archive, reporter);
    const ZipMember* const found = valueOrThrow(memberNamed(member, members.all()));
    return parsedMember(members, found, memory, reporter, beside);
}

JSONDocument readOnlyJSONMember(const ExportFile& archive, ImportMemory& memory,
                                Reporter& reporter) {
    ExportMembers members = membersOf(archive, reporter);
    const ZipMember* only = nullptr;
    for (const ZipMember& member : members.all()) {
        if (hasExtension(member.name, ".json")) {
            if (only != nullptr) {
                throw ReadError(FailureReason::wrongShape);
            }
            only = &member;
        }
    }
    return parsedMember(members, only, memory, reporter, {});
}

JSONObject topOf(const JSONDocument& document, std::span<const std::string_view> members) {
    const auto top = document.root().object();
    bool isEmpty = true;
    bool isKnown = false;
    if (top) {
        top->forEachNamed({}, [&](std::string_view name, const JSONValue& /*value*/) {
            isEmpty = false;
            isKnown = isKnown || std::ranges::find(members, name) != members.end();
        });
    }
    if (!top || (!isKnown && !isEmpty)) {
        throw ReadError(FailureReason::wrongShape);
    }
    return *top;
}

std::optional<JSONElements> listIn(const JSONObject& object, std::string_view name,
                                   Reporter& reporter) {
    const JSONValue list = memberOf(object, name);
    if (!list.isNull() && !list.elements()) {
        reporter.foundMany(FindingKind::valueOfOtherType, name, 1);
    }
    return list.elements();
}

std::optional<JSONElements> listOfEntriesIn(const JSONObject& object, std::string_view name,
                                            Reporter& reporter) {
    if (memberOf(object, name).isNull()) {
        reporter.foundMany(FindingKind::valueOfOtherType, name, 1);
    }
    return listIn(object, name, reporter);
}

} // namespace Rellinor
