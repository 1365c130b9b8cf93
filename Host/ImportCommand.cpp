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
#include "Host/CredentialExchangeFormat.hpp"
#include "Host/DetectionWords.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/Input.hpp"
#include "Host/JSONFormat.hpp"
#include "Host/Masking.hpp"
#include "Host/ProgressBar.hpp"
#include "Host/ReportWords.hpp"
#include "Host/Source.hpp"
#include "Host/SummaryFormat.hpp"
#include "Host/TableFormat.hpp"
#include "Host/TirelFormat.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 5> formats = {"summary", "table", "json", "tirel",
                                                     "credential-exchange"};

Door doorOf(const ImportOptions& options) noexcept {
    return std::holds_alternative<ImportSource>(options.as) ? Door::first : Door::second;
}

std::unique_ptr<RecordsFormat> makeFormat(const ImportOptions& options, const Terminal& terminal) {
    switch (options.format) {
    case Format::summary:
        return std::make_unique<SummaryFormat>();
    case Format::table:
        return std::make_unique<TableFormat>(terminal, doorOf(options));
    case Format::json:
        return std::make_unique<JSONFormat>(doorOf(options));
    case Format::tirel:
        return std::make_unique<TirelFormat>();
    case Format::credentialExchange:
        return std::make_unique<CredentialExchangeFormat>();
    }
    return nullptr;
}

/// Reads one path after the other.
class Reader {
public:
    explicit Reader(const ImportOptions& options) noexcept : _options(options) {}

    [[nodiscard]] ImportedExport read(const Input& input) {
        const auto* const source = std::get_if<ImportSource>(&_options.as);
        if (source == nullptr || !_options.keepImporter || input.isStream()) {
            return readAndShow(input);
        }
        ImportedExport imported; // no report: only an importer that stays has a state
        _importer.records(*input.file().url(), *source,
                          [&](RecordsResult result) { imported.records = std::move(result); });
        return imported;
    }

private:
    [[nodiscard]] ImportedExport readAndShow(const Input& input) const {
        ReadOptions asked{.as = _options.as};
        std::optional<ProgressBar> bar;
        if (_options.progress != nullptr) {
            bar.emplace(*_options.progress);
            asked.onProgress = [&](const Progress& progress) {
                bar->show(progress);
                return true;
            };
        }
        return readExport(input.file(), asked);
    }

    const ImportOptions& _options;
    RecordsImporter _importer;
};

constexpr std::string_view stillEncrypted = "the passwords are still encrypted: export them in the "
                                            "browser itself, as a CSV file, and import "
                                            "that; or take them as they are with --encrypted";

/// Whether an export would hold what nobody can use, as if it were passwords.
bool wouldExportEncrypted(const ImportOptions& options, const ImportReport& report) {
    return !exportName(options.format).empty() && !options.takesEncrypted &&
           std::ranges::count(report.findings(), FindingKind::stillEncrypted, &Finding::kind) > 0;
}

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
           (told.empty() ? imported.records.error().localizedDescription() : told);
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

std::string_view exportName(Format format) {
    switch (format) {
    case Format::tirel:
        return "a Tirel export";
    case Format::credentialExchange:
        return "a Credential Exchange file";
    default:
        return {};
    }
}

int import(const ImportOptions& options, const Terminal& terminal, std::ostream& out,
           std::ostream& errors) {
    const std::unique_ptr<RecordsFormat> format = makeFormat(options, terminal);
    const auto* const source = std::get_if<ImportSource>(&options.as);
    Reader reader(options);
    int status = ExitStatus::success;
    for (const std::string& path : options.paths) {
        const Input input(path);
        // A source that is a database makes a file where there is none, so it is looked for before.
        Detection detected = source != nullptr ? lookAt(input.file()) : Detection();
        ImportedExport imported = reader.read(input);
        if (source == nullptr && !imported.records) {
            detected = lookAt(input.file());
        }
        if (source == nullptr && wouldExportEncrypted(options, imported.report)) {
            errors << "rellinor: " << displayPath(path) << ": not exported: " << stillEncrypted
                   << '\n';
            status = ExitStatus::importFailed;
            continue;
        }
        const auto tell = [&, told = message(path, options.as, detected, imported)] {
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
        Masking masking(options.reveal ? Secrets::revealed : Secrets::masked, doorOf(options));
        if (source != nullptr && !objection(detected, *source).empty()) {
            masking.addMisplaced(*imported.records, input.file());
            tell(); // not below a long table
            format->write(path, imported, masking, out);
        } else {
            format->write(path, imported, masking, out);
            tell();
        }
        if (source == nullptr && options.isStrict && !isWithoutLoss(imported.report)) {
            status = ExitStatus::importFailed;
        }
        format->keep(std::move(imported));
    }
    format->finish(out);
    return status;
}

} // namespace Rellinor::Host
