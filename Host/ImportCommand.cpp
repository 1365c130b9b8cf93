#include "Host/ImportCommand.hpp"

#include <memory>
#include <optional>
#include <ostream>

#include <Rellinor/Rellinor.hpp>

#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/JSONFormat.hpp"
#include "Host/Source.hpp"
#include "Host/SummaryFormat.hpp"
#include "Host/TableFormat.hpp"
#include "Host/TirelFormat.hpp"

namespace Rellinor::Host {

namespace {

std::unique_ptr<RecordsFormat> makeFormat(const ImportOptions& options) {
    const Secrets secrets = options.reveal ? Secrets::revealed : Secrets::masked;
    switch (options.format) {
    case Format::summary:
        return std::make_unique<SummaryFormat>();
    case Format::table:
        return std::make_unique<TableFormat>(secrets);
    case Format::json:
        return std::make_unique<JSONFormat>(secrets);
    case Format::tirel:
        return std::make_unique<TirelFormat>();
    }
    return nullptr;
}

} // namespace

std::optional<Format> formatNamed(std::string_view name) {
    if (name == "summary") {
        return Format::summary;
    }
    if (name == "table") {
        return Format::table;
    }
    if (name == "json") {
        return Format::json;
    }
    if (name == "tirel") {
        return Format::tirel;
    }
    return std::nullopt;
}

int import(const ImportOptions& options, std::ostream& out, std::ostream& errors) {
    const std::unique_ptr<RecordsFormat> format = makeFormat(options);
    std::optional<RecordsImporter> importer;
    int status = ExitStatus::success;
    for (const std::string& path : options.paths) {
        if (!importer || !options.keepImporter) {
            importer.emplace();
        }
        const auto show = [&](const RecordsResult& result) {
            if (result) {
                format->write(path, *result, out);
                return;
            }
            status = ExitStatus::importFailed;
            format->writeFailure(result.error(), out);
            errors << "rellinor: " << displayText(path) << ": not imported as "
                   << nameOf(options.source) << ": " << result.error().localizedDescription()
                   << '\n';
        };
        importer->records(URL::fileURLWithPath(path), options.source, show);
    }
    format->finish(out);
    return status;
}

} // namespace Rellinor::Host
