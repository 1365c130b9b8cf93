#pragma once

#include <string>

#include <Rellinor/ExportReader.hpp>

namespace Rellinor::Host {

/// In one line, what matters most of an import, without any of the contents: what the file was read
/// as, how much is left out, what is worth a look; or why nothing arrives and what to do about
/// that. Empty if there is nothing to say.
///
/// @param as        how the file at `path` was read
/// @param detected  what that was found to be; asked for only if the import failed or `as` is a
///                  source
[[nodiscard]] std::string advice(const std::string& path, const ReadAs& as,
                                 const Detection& detected, const ImportedExport& imported);

} // namespace Rellinor::Host
