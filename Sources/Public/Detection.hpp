#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <Rellinor/Export.hpp>
#include <Rellinor/ExportFile.hpp>
#include <Rellinor/FailureReason.hpp>
#include <Rellinor/Layout.hpp>
#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor {

/// How sure a detection is.
enum class Confidence : std::uint8_t {
    none,     ///< nothing is recognised
    possible, ///< nothing speaks against it
    likely,   ///< a shape that nothing else is known to have
    certain,  ///< names that nothing else is known to use
};

/// What a file is taken for.
struct Detection {
    std::optional<Layout> layout;             ///< absent if nothing is recognised
    Confidence confidence = Confidence::none; ///< how sure that is
    std::optional<ImportSource> source; ///< the source that `RecordsImporter` reads it as, if any
    FailureReason obstacle = FailureReason::none; ///< what keeps the file from being read
    std::string_view product;  ///< who wrote the file, a literal; empty if nothing is recognised
    std::string_view evidence; ///< what tells, a literal: the names of columns, members or tables
    std::string_view advice;   ///< what to do in the product if there is an obstacle; a literal
};

/// Says what a file or folder is, by a bounded part of it. Changes nothing, and creates nothing
/// beside the file.
///
/// @throws std::bad_alloc
[[nodiscard]] RELLINOR_PUBLIC Detection detect(const ExportFile& file);

} // namespace Rellinor
