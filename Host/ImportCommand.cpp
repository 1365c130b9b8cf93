#include "Host/ImportCommand.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

#include "Host/Advice.hpp"
#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Wording.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/JSONFormat.hpp"
#include "Host/Obstacle.hpp"
#include "Host/Source.hpp"
#include "Host/SummaryFormat.hpp"
#include "Host/TableFormat.hpp"
#include "Host/TirelFormat.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 4> formats = {"summary", "table", "json", "tirel"};

std::unique_ptr<RecordsFormat> makeFormat(const ImportOptions& options, const Terminal& terminal) {
    const Secrets secrets = options.reveal ? Secrets::revealed : Secrets::masked;
    switch (options.format) {
    case Format::summary:
        return std::make_unique<SummaryFormat>();
    case Format::table:
        return std::make_unique<TableFormat>(secrets, terminal);
    case Format::json:
        return std::make_unique<JSONFormat>(secrets);
    case Format::tirel:
        return std::make_unique<TirelFormat>();
    }
    return nullptr;
}

/// What the outcome of a path is that no source reads, in the place of an import's own error.
constexpr NSError unknownFile = {"Rellinor.UnknownFileError", 1};

/// The source that reads a path, if one is found; in any case `say` is told what was found.
std::optional<ImportSource> found(const std::string& path, const auto& say) {
    const Detection detection = detect(path);
    if (detection.source) {
        say("read as " + described(detection));
    } else if (detection.layout.empty()) {
        say("not imported: " + described(detection));
    } else {
        say("not imported: " + proposal(detection));
    }
    return detection.source;
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
    std::optional<RecordsImporter> importer;
    int status = ExitStatus::success;
    for (const std::string& path : options.paths) {
        const auto say = [&](std::string_view message) {
            errors << "rellinor: " << displayPath(path) << ": " << displayText(message) << '\n';
        };
        const std::optional<ImportSource> source =
            options.source ? options.source : found(path, say);
        if (!source) {
            status = ExitStatus::importFailed;
            format->writeFailure(unknownFile, out);
            continue;
        }
        if (!importer || !options.keepImporter) {
            importer.emplace();
        }
        // Asked before, since a source that is a database makes a file where there is none.
        const std::string hindrance = obstacle(path);
        const auto show = [&](const RecordsResult& result) {
            const std::string told = hindrance.empty() ? advice(path, *source, result) : hindrance;
            if (!result) {
                status = ExitStatus::importFailed;
                format->writeFailure(result.error(), out);
                say("not imported as " + std::string(nameOf(*source)) + ": " +
                    result.error().localizedDescription() + (told.empty() ? "" : " " + told));
                return;
            }
            format->write(path, *result, out);
            if (!told.empty()) {
                say(told);
            }
        };
        importer->records(URL::fileURLWithPath(path), *source, show);
    }
    format->finish(out);
    return status;
}

} // namespace Rellinor::Host
