#include "Private/Importers/JSONExport.hpp"

#include <algorithm>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Proxies/ZipArchive.hpp"
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

JSONDocument parsed(std::span<const char> bytes, ImportMemory& memory, Reporter& reporter) {
    std::string_view text(bytes.data(), bytes.size());
    text.remove_prefix(lengthOfByteOrderMark(text));
    auto document = JSONDocument::parsed(text, {}, memory, JSONExtent::everything);
    if (!document) {
        const ReadFailure failure = failureOf(document.error(), text);
        reportFailure(failure, text, reporter);
        throw ReadError(failure);
    }
    return *std::move(document);
}

ZipArchive opened(const ExportFile& file, const Reporter& reporter) {
    const ReadLimits& limits = reporter.limits();
    return valueOrThrow(ZipArchive::opened(file, limits.largestFile, limits.largestExpansion));
}

bool hasExtension(std::string_view name, std::string_view extension) noexcept {
    return name.size() > extension.size() &&
           sameIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

JSONDocument parsedMember(ZipArchive& archive, const ZipMember* member, ImportMemory& memory,
                          Reporter& reporter, std::string_view beside) {
    if (member == nullptr) {
        const bool isEncrypted = std::ranges::any_of(archive.members(), [](const ZipMember& other) {
            return hasExtension(other.name, ".pgp") || hasExtension(other.name, ".jwe");
        });
        throw ReadError(isEncrypted ? FailureReason::encrypted : FailureReason::wrongShape);
    }
    for (const ZipMember& other : archive.members()) {
        const bool isBeside = !beside.empty() && other.isNamed(beside);
        if (&other != member && !other.isFolder() && !isBeside) {
            reporter.unread(attachmentsPart);
        }
    }
    return parsed(valueOrThrow(archive.read(*member, memory)), memory, reporter);
}

} // namespace

JSONDocument readJSON(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    return parsed(memory.adopt(valueOrThrow(contentsOf(file, {}, reporter.limits().largestFile))),
                  memory, reporter);
}

JSONDocument readJSONMember(const ExportFile& archive, std::string_view member,
                            ImportMemory& memory, Reporter& reporter, std::string_view beside) {
    ZipArchive zip = opened(archive, reporter);
    return parsedMember(zip, valueOrThrow(zip.find(member)), memory, reporter, beside);
}

JSONDocument readOnlyJSONMember(const ExportFile& archive, ImportMemory& memory,
                                Reporter& reporter) {
    ZipArchive zip = opened(archive, reporter);
    const ZipMember* only = nullptr;
    for (const ZipMember& member : zip.members()) {
        if (hasExtension(member.name, ".json")) {
            if (only != nullptr) {
                throw ReadError(FailureReason::wrongShape);
            }
            only = &member;
        }
    }
    return parsedMember(zip, only, memory, reporter, {});
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
