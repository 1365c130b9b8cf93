#pragma once

#include <Rellinor/Rellinor.hpp>

#include "Benchmarks/Run.hpp"
#include "Benchmarks/Store.hpp"

namespace Rellinor::Benchmarks {

/// What an import delivered.
struct Import {
    ImportedRecords records;
    Extras extras = {}; ///< and a report, if the file was read faithfully
    ImportReport report = {};
};

[[nodiscard]] Delivered deliveredBy(const Import& import);

/// What an import of the store delivers, which must succeed.
[[nodiscard]] Import imported(const Store& store);

/// What an import of the store delivers, and nothing if it fails.
[[nodiscard]] Import importedIfPossible(const Store& store);

/// The same of reading the store faithfully as its layout, with extras and a report.
[[nodiscard]] Import readFaithfully(const Store& store);

} // namespace Rellinor::Benchmarks
