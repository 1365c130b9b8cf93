#include "Private/Importers/OnePassword/OnePasswordImporter.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "Private/Importers/OnePassword/OnePasswordRecord.hpp"
#include "Private/Proxies/PIFFileProxy.hpp"

namespace Rellinor {

namespace {

using Key = OnePasswordRecordKey;

constexpr std::string_view keyOfRecords = "records";
constexpr std::string_view missingFields = "Record did not contain expected fields";

/// The members that are kept: those of the records, in their order, and the list of them.
constexpr auto keptMembers = namesOf(allOnePasswordRecordKeys, keyOfRecords);

std::optional<std::string_view> textOf(const JSONObject& object, Key key) noexcept {
    return object[key].and_then(&JSONValue::text);
}

std::optional<JSONObject> secureContentsOf(const JSONObject& record) noexcept {
    return record[Key::secureContents].and_then(&JSONValue::object);
}

/// A list of dictionaries in the secure contents.
std::optional<JSONObjects> listOf(const std::optional<JSONObject>& secureContents,
                                  Key key) noexcept {
    return secureContents ? (*secureContents)[key].and_then(&JSONValue::objects) : std::nullopt;
}

// Quirk: only the first url counts.
std::optional<std::string_view> urlOf(const std::optional<JSONObjects>& urls) noexcept {
    return urls && !urls->empty() ? textOf(*urls->begin(), Key::url) : std::nullopt;
}

/// The value of the first field of that designation.
std::optional<std::string_view> valueOf(const std::optional<JSONObjects>& fields,
                                        Key designation) noexcept {
    if (!fields) {
        return std::nullopt;
    }
    const auto field = std::ranges::find_if(*fields, [&](const JSONObject& candidate) {
        return textOf(candidate, Key::designation) == rawValue(designation);
    });
    return field != fields->end() ? textOf(*field, Key::value) : std::nullopt;
}

bool isOfType(const JSONObject& record, OnePasswordRecordType type) noexcept {
    return textOf(record, Key::type) == rawValue(type);
}

} // namespace

JSONRecords OnePasswordImporter::read(const URL& url, ImportMemory& memory) {
    JSON json = PIFFileProxy::toJSON(url, keyOfRecords, keptMembers, memory);
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
    const auto title = textOf(record, Key::title);
    const auto secureContents = secureContentsOf(record);
    const auto url = urlOf(listOf(secureContents, Key::urls));
    const auto fields = listOf(secureContents, Key::fields);
    const auto username = valueOf(fields, Key::username);
    const auto password = valueOf(fields, Key::password);
    if (!username || !password) {
        return std::unexpected(missingFields);
    }
    return ImportedPassword{
        *username, *password, url.value_or(""),
        title, // service
    };
}

Built<ImportedNote> OnePasswordImporter::buildNote(const RawRecord& record) noexcept {
    const auto title = textOf(record, Key::title);
    const auto secureContents = secureContentsOf(record);
    const auto content = secureContents ? textOf(*secureContents, Key::note) : std::nullopt;
    if (!title || !content) {
        return std::unexpected(missingFields);
    }
    return ImportedNote{
        std::nullopt, // color
        *title,
        *content,
    };
}

} // namespace Rellinor
