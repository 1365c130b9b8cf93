#include "Private/Importers/Tirel/TirelImporter.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

#include "Private/Extensions/String.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/JSONFileProxy.hpp"

namespace Rellinor {

namespace {

using Key = TirelRecordKey;

/// The file's shape keeps every record from lacking a field.
constexpr Dropped missingFields{.reason = LeftOutReason::missingField, .field = {}};

std::optional<std::string_view> textOf(const TirelRecord& record, Key key) noexcept {
    const auto value = record[key];
    return value ? value->text() : std::nullopt;
}

std::optional<std::int64_t> integerOf(const TirelRecord& record, Key key) noexcept {
    const auto value = record[key];
    return value ? value->integer() : std::nullopt;
}

} // namespace

TirelExportFile TirelImporter::read(const ExportFile& file, ImportMemory& memory,
                                    Reporter* reporter) {
    JSONFileProxy proxy(file, memory, largestFileFor(reporter));
    auto data = proxy.containerObject<TirelExportFile>();
    if (!data) {
        reportFailure(proxy, reporter);
        throw TextError("The provided JSON file has an unexpected format");
    }
    return *std::move(data);
}

bool TirelImporter::isPassword(const RawRecord& record) noexcept {
    return record[Key::password].has_value();
}

bool TirelImporter::isNote(const RawRecord& record) noexcept {
    return record[Key::text].has_value();
}

bool TirelImporter::isCard(const RawRecord& record) noexcept {
    return record[Key::cardNumber].has_value();
}

Built<ImportedPassword> TirelImporter::buildPassword(const RawRecord& record) noexcept {
    const auto url = textOf(record, Key::url);
    const auto password = textOf(record, Key::password);
    const auto username = textOf(record, Key::username);
    if (!url || !password || !username) {
        return std::unexpected(missingFields);
    }
    return ImportedPassword{
        *username,
        *password,
        *url,
        textOf(record, Key::custName), // service
        integerOf(record, Key::color),
        textOf(record, Key::note),
        integerOf(record, Key::pwdChange),
    };
}

Built<ImportedNote> TirelImporter::buildNote(const RawRecord& record) noexcept {
    const auto title = textOf(record, Key::label);
    const auto content = textOf(record, Key::text);
    if (!title || !content) {
        return std::unexpected(missingFields);
    }
    return ImportedNote{
        integerOf(record, Key::color),
        *title,
        *content,
    };
}

Built<ImportedCard> TirelImporter::buildCard(const RawRecord& record) noexcept {
    const auto cardNumber = textOf(record, Key::cardNumber);
    const auto holderName = textOf(record, Key::holderName);
    const auto custName = textOf(record, Key::custName);
    const auto cvv = textOf(record, Key::cvv);
    const auto pin = textOf(record, Key::pin);
    const auto note = textOf(record, Key::note);
    const auto day = integerOf(record, Key::expirationDay);
    const auto month = integerOf(record, Key::expirationMonth);
    const auto year = integerOf(record, Key::expirationYear);
    if (!cardNumber || !holderName || !custName || !cvv || !pin || !note || !day || !month ||
        !year) {
        return std::unexpected(missingFields);
    }
    return ImportedCard{
        *cardNumber, *custName, *holderName, *cvv, *pin, *note, *day, *month, *year,
    };
}

} // namespace Rellinor
