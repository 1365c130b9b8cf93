#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include <Rellinor/Models/ImportSource.hpp>

#include "Host/Detection/Detection.hpp"

namespace Rellinor::Host {

using ColumnNames = std::span<const std::string_view>;

/// A layout that is imported by the names of its columns, in any order.
struct ReadLayout {
    std::string_view layout;
    ImportSource source;
    ColumnNames columns;
    ColumnNames
        later; ///< what newer versions of the product write too, which keeps it from being read
};

[[nodiscard]] std::span<const ReadLayout> readLayouts() noexcept;

/// How the columns of a table have to be renamed so that an import takes it for KeePass's: for each
/// of KeePass's columns the name of the one that holds the same, or an empty one if none does. All
/// are empty if nothing of the table can be imported.
using Renamed = std::array<std::string_view, 5>;

/// The columns of KeePass's, in the order of `Renamed`.
[[nodiscard]] ColumnNames keePassColumns() noexcept;

/// A layout that a product writes and nothing here reads.
struct OtherLayout {
    std::string_view layout;
    ColumnNames columns;
    bool mayHaveMore; ///< columns, from version to version
    Confidence confidence;
    Renamed renamed;
};

/// The first that fits is meant.
[[nodiscard]] std::span<const OtherLayout> otherLayouts() noexcept;

} // namespace Rellinor::Host
