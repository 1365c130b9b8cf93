#include "Host/ImportCommand.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include <Rellinor/Rellinor.hpp>

#include "Host/Advice.hpp"
#include "Host/DetectionWords.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/JSONFormat.hpp"
#include "Host/Masking.hpp"
#include "Host/Source.hpp"
#include "Host/SummaryFormat.hpp"
#include "Host/TableFormat.hpp"
#include "Host/TirelFormat.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 4> formats = {"summary", "table", "json", "tirel"};

std::unique_ptr<RecordsFormat> makeFormat(const ImportOptions& options, const Terminal& terminal) {
    switch (options.format) {
    case Format::summary:
        return std::make_unique<SummaryFormat>();
    case Format::table:
        return std::make_unique<TableFormat>(terminal);
    case Format::json:
        return std::make_unique<JSONFormat>(
            std::holds_alternative<ImportSource>(options.as) ? Door::first : Door::second);
    case Format::tirel:
        return std::make_unique<TirelFormat>();
    }
    return nullptr;
}

/// Reads one path after the other.
class Reader {
public:
    explicit Reader(const ImportOptions& options) noexcept : _options(options) {}

    [[nodiscard]] ImportedExport read(const std::string& path) {
        const auto* const source = std::get_if<ImportSource>(&_options.as);
        if (source == nullptr || !_options.keepImporter) {
            return readExport(ExportFile::atPath(path), {.as = _options.as});
        }
        ImportedExport imported; // no report: only an importer that stays has a state
        _importer.records(URL::fileURLWithPath(path), *source,
                          [&](RecordsResult result) { imported.records = std::move(result); });
        return imported;
    }

private:
    const ImportOptions& _options;
    RecordsImporter _importer;
};

/// The line on an import; empty if there is nothing to say.
std::string message(const std::string& path, const ReadAs& as, const Detection& detected,
                    const ImportedExport& imported) {
    std::string told;
    try {
        told = advice(path, as, detected, imported);
    } catch (const std::bad_alloc&) { // which must not keep the records from arriving
        told = imported.records ? "" : description(FailureReason::outOfMemory);
    }
    if (imported.records) {
        return told;
    }
    const auto* const source = std::get_if<ImportSource>(&as);
    if (source == nullptr) {
        return "not imported: " + told;
    }
    return "not imported as " + std::string(identifier(*source)) + ": " +
           imported.records.error().localizedDescription() + (told.empty() ? "" : " ") + told;
}

} // namespace

std::optional<Format> formatNamed(std::string_view name) {
    const auto found = std::ranges::find(formats, name);
    return found == formats.end() ? std::nullopt
                                  : std::optional(static_cast<Format>(found - formats.begin()));
}

std::span<const std::string_view> formatNames() {
    return formats;
}

int import(const ImportOptions& options, const Terminal& terminal, std::ostream& out,
           std::ostream& errors) {
    const std::unique_ptr<RecordsFormat> format = makeFormat(options, terminal);
    const auto* const source = std::get_if<ImportSource>(&options.as);
    Reader reader(options);
    int status = ExitStatus::success;
    for (const std::string& path : options.paths) {
        // A source that is a database makes a file where there is none, so it is looked for before.
        Detection detected = source != nullptr ? lookAt(path) : Detection();
        const ImportedExport imported = reader.read(path);
        if (source == nullptr && !imported.records) {
            detected = lookAt(path);
        }
        const std::string told = message(path, options.as, detected, imported);
        const auto tell = [&] {
            if (!told.empty()) {
                errors << "rellinor: " << displayPath(path) << ": " << displayText(told) << '\n';
            }
        };
        if (!imported.records) {
            status = ExitStatus::importFailed;
            format->writeFailure(imported, out);
            tell();
            continue;
        }
        Masking masking(options.reveal ? Secrets::revealed : Secrets::masked);
        // Another product's file is no news that may come below a long table.
        const bool isOther = source != nullptr && !objection(detected, *source).empty();
        if (isOther) {
            masking.addMisplaced(*imported.records, ExportFile::atPath(path));
            tell();
        }
        format->write(path, imported, masking, out);
        if (!isOther) {
            tell();
        }
    }
    format->finish(out);
    return status;
}

} // namespace Rellinor::Host
