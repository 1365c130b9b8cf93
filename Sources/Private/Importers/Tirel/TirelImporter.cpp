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
    const auto url = record.text(Key::url);
    const auto password = record.text(Key::password);
    const auto username = record.text(Key::username);
    if (!url || !password || !username) {
        return std::unexpected(missingFields);
    }
    return ImportedPassword{
        *username,
        *password,
        *url,
        record.text(Key::custName), // service
        record.integer(Key::color),
        record.text(Key::note),
        record.integer(Key::pwdChange),
    };
}

Built<ImportedNote> TirelImporter::buildNote(const RawRecord& record) noexcept {
    const auto title = record.text(Key::label);
    const auto content = record.text(Key::text);
    if (!title || !content) {
        return std::unexpected(missingFields);
    }
    return ImportedNote{
        record.integer(Key::color),
        *title,
        *content,
    };
}

Built<ImportedCard> TirelImporter::buildCard(const RawRecord& record) noexcept {
    const auto cardNumber = record.text(Key::cardNumber);
    const auto holderName = record.text(Key::holderName);
    const auto custName = record.text(Key::custName);
    const auto cvv = record.text(Key::cvv);
    const auto pin = record.text(Key::pin);
    const auto note = record.text(Key::note);
    const auto day = record.integer(Key::expirationDay);
    const auto month = record.integer(Key::expirationMonth);
    const auto year = record.integer(Key::expirationYear);
    if (!cardNumber || !holderName || !custName || !cvv || !pin || !note || !day || !month ||
        !year) {
        return std::unexpected(missingFields);
    }
    return ImportedCard{
        *cardNumber, *custName, *holderName, *cvv, *pin, *note, *day, *month, *year,
    };
}

} // namespace Rellinor
