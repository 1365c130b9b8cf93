#pragma once

#include <expected>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <Rellinor/ExportReader.hpp>

#include "Host/ImportCommand.hpp"
#include "Host/ReportJSON.hpp"

namespace Rellinor::Host {

/// `rellinor import`, and where the records are to go.
struct ImportRequest {
    ImportOptions options;
    std::optional<std::string> output; ///< absent for the standard output
    bool force = false;
};

/// `rellinor detect`.
struct DetectRequest {
    std::vector<std::string> paths;
    Wording wording = Wording::people;
};

/// `rellinor check`.
struct CheckRequest {
    ReadAs as;
    std::vector<std::string> paths;
    Wording wording = Wording::people;
};

/// `rellinor sources`.
struct SourcesRequest {};

/// `rellinor layouts`.
struct LayoutsRequest {};

using Request =
    std::variant<ImportRequest, DetectRequest, CheckRequest, SourcesRequest, LayoutsRequest>;

/// What the command line asks for. If that is the version or help, or nothing that makes sense,
/// then that is answered, and the exit status returned instead.
[[nodiscard]] std::expected<Request, int> readCommandLine(int argc, char* argv[]);

} // namespace Rellinor::Host
