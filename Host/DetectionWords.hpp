#pragma once

#include <string>

#include <Rellinor/ExportReader.hpp>

namespace Rellinor::Host {

/// What is found out about a file or folder. A damaged one may claim more memory than
/// there is, which is no reason to tell nothing of the others: it is an obstacle like any other.
[[nodiscard]] Detection lookAt(const ExportFile& file);

/// What is found out about a file, on one line: the layout, how sure that is, the product, what
/// tells, which source is meant for the file, and what keeps it from being read.
[[nodiscard]] std::string described(const Detection& detection);

/// Why nothing arrives from a file: what the file is, what is wrong and what to do about that.
///
/// @param failure  of an import that read the file so; its reason is none if nothing but the
/// detection can tell
[[nodiscard]] std::string refusal(const Detection& detection, const ReadAs& as,
                                  const Failure& failure, PlaceUnit unit);

/// That a file is rather something else than an export of a source, and how to read it then; empty
/// if that cannot be said.
[[nodiscard]] std::string objection(const Detection& detection, ImportSource source);

/// Whether something is wrong with a file, whatever reads it.
[[nodiscard]] bool isHindered(const Detection& detection) noexcept;

/// Whether `readExport` would read the file as what it was found to be.
[[nodiscard]] bool isReadable(const Detection& detection) noexcept;

} // namespace Rellinor::Host
