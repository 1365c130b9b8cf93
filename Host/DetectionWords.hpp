#pragma once

#include <string>

#include <Rellinor/Detection.hpp>
#include <Rellinor/ImportReport.hpp>

namespace Rellinor::Host {

/// What is found out about the file or folder at a path. A damaged one may claim more memory than
/// there is, which is no reason to tell nothing of the others: it is an obstacle like any other.
[[nodiscard]] Detection lookAt(const std::string& path);

/// What is found out about a file, on one line: the layout, how sure that is, the product, what
/// tells, which source is meant for the file, and what keeps it from being read.
[[nodiscard]] std::string described(const Detection& detection);

/// Why nothing arrives from a file: what the file is, what is wrong and what to do about that.
[[nodiscard]] std::string refusal(const Detection& detection, const Failure& failure,
                                  PlaceUnit unit);

/// What speaks against importing a file from a source: that nothing is there, or that it is rather
/// something else, and how to read it then. Empty if nothing does.
[[nodiscard]] std::string objection(const Detection& detection, ImportSource source);

/// Whether `readExport` would read the file as what it was found to be.
[[nodiscard]] bool isReadable(const Detection& detection) noexcept;

} // namespace Rellinor::Host
