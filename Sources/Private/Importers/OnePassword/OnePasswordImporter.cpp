#include "Private/Importers/OnePassword/OnePasswordImporter.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/OnePassword/OnePasswordRecord.hpp"
#include "Private/Proxies/PIFFileProxy.hpp"

namespace Rellinor {

namespace {

using Key = OnePasswordRecordKey;

constexpr std::string_view keyOfRecords = "records";

std::unexpected<Dropped> missing(Key key) noexcept {
    return std::unexpected(Dropped{.reason = LeftOutReason::missingField, .field = rawValue(key)});
}

/// The members that are kept: those of the records, in their order, and the list of them.
constexpr auto keptMembers = withOneMore(namesOfOnePasswordRecordKeys, keyOfRecords);

/// A list of dictionaries in the secure contents.
std::optional<JSONObjects> listOf(const std::optional<JSONObject>& secureContents,
                                  Key key) noexcept {
    return secureContents ? secureContents->objects(key) : std::nullopt;
}

// Quirk: only the first url counts.
std::optional<std::string_view> urlOf(const std::optional<JSONObjects>& urls) noexcept {
    return urls && !urls->empty() ? (*urls->begin()).text(Key::url) : std::nullopt;
}

/// The value of the first field of that designation.
std::optional<std::string_view> valueOf(const std::optional<JSONObjects>& fields,
                                        Key designation) noexcept {
    if (!fields) {
        return std::nullopt;
    }
    const auto field = std::ranges::find_if(*fields, [&](const JSONObject& candidate) {
        return candidate.text(Key::designation) == rawValue(designation);
    });
    return field != fields->end() ? (*field).text(Key::value) : std::nullopt;
}

bool isOfType(const JSONObject& record, OnePasswordRecordType type) noexcept {
    return record.text(Key::type) == rawValue(type);
}

} // namespace

JSONRecords OnePasswordImporter::read(const ExportFile& file, ImportMemory& memory,
                                      Reporter* reporter) {
    PIFLines* const lines = reportPIFLines(reporter);
    JSON json = PIFFileProxy::toJSON(file, keyOfRecords, keptMembers, memory, lines,
                                     largestFileFor(reporter));
    const JSONObjects records = json.value(keyOfRecords);
    return {std::move(json).takeDocument(), records};
}

// Quirk: a record of a password alone is left out.
bool OnePasswordImporter::isPassword(const RawRecord& record) noexcept {
    return isOfType(record, OnePasswordRecordType::webForm);
}

bool OnePasswordImporter::isNote(const RawRecord& record) noexcept {
    return isOfType(record, OnePasswordRecordType::secureNote);
}

Built<ImportedPassword> OnePasswordImporter::buildPassword(const RawRecord& record) noexcept {
    const auto title = record.text(Key::title);
    const auto secureContents = record.object(Key::secureContents);
    const auto url = urlOf(listOf(secureContents, Key::urls));
    const auto fields = listOf(secureContents, Key::fields);
    const auto username = valueOf(fields, Key::username);
    const auto password = valueOf(fields, Key::password);
    if (!username) {
        return missing(Key::username);
    }
    if (!password) {
        return missing(Key::password);
    }
    return ImportedPassword{
        *username, *password, url.value_or(""),
        title, // service
    };
}

Built<ImportedNote> OnePasswordImporter::buildNote(const RawRecord& record) noexcept {
    const auto title = record.text(Key::title);
    const auto secureContents = record.object(Key::secureContents);
    const auto content = secureContents ? secureContents->text(Key::note) : std::nullopt;
    if (!title) {
        return missing(Key::title);
    }
    if (!content) {
        return missing(Key::note);
    }
    return ImportedNote{
        std::nullopt, // color
        *title,
        *content,
    };
}

} // namespace Rellinor
