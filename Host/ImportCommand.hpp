#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <Rellinor/ExportReader.hpp>

#include "Host/Terminal.hpp"

namespace Rellinor::Host {

/// How the records are shown.
enum class Format : std::uint8_t {
    summary,
    table,
    json,
    // Data for another program rather than a view: secrets are never masked.
    tirel,
    credentialExchange,
};

/// What a format is called that is data for another program; empty for a view.
[[nodiscard]] std::string_view exportName(Format format);

/// The format of that name; absent if there is none.
[[nodiscard]] std::optional<Format> formatNamed(std::string_view name);

/// The names of all formats.
[[nodiscard]] std::span<const std::string_view> formatNames();

/// What the command line asks of an import.
struct ImportOptions {
    ReadAs as;
    Format format = Format::summary;
    bool reveal = false;
    bool takesEncrypted = false; ///< secrets that are encrypted are exported as they are
    bool isStrict = false;       ///< a loss is a failure
    bool keepImporter = false;   ///< of a source
    std::vector<std::string> paths;
    std::ostream* progress = nullptr; ///< a terminal to show progress on
};

/// Imports every path in order, and shows the records on `out`, which is that terminal. On `errors`
/// it writes for each path at most one line: why nothing arrives, or what somebody should know who
/// thinks of deleting the file. Returns the exit status.
[[nodiscard]] int import(const ImportOptions& options, const Terminal& terminal, std::ostream& out,
                         std::ostream& errors);

} // namespace Rellinor::Host
