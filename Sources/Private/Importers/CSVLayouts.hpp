#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include <Rellinor/Layout.hpp>
#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor {

/// The names of columns, in lower case.
using ColumnNames = std::span<const std::string_view>;

/// Columns beside those that a layout knows, which a header may have all the same.
enum class OtherColumns : std::uint8_t {
    any,  ///< the required names are used by no other product
    few,  ///< fewer than the known ones
    none, ///< the required names are usual ones
};

/// A CSV file that a product writes, with a header. Names are compared without regard to case and
/// surrounding blanks, in any order.
struct CSVLayout {
    Layout layout;
    OtherColumns others = OtherColumns::any;
    /// The specified import that takes a header of `exactNames`, in any order.
    std::optional<ImportSource> source = std::nullopt;
    std::string_view product;
    ColumnNames required;        ///< all of them have to be there
    ColumnNames optional;        ///< what the product writes besides, in some of its versions
    std::string_view evidence;   ///< the names that tell, for people
    ColumnNames exactNames = {}; ///< with regard to case and blanks
};

/// All of them, those of one product together. A layout may have several, one for each kind of file
/// that it stands for.
[[nodiscard]] std::span<const CSVLayout> csvLayouts() noexcept;

/// The kinds of column that a header of no known product may name.
enum class UsualColumn : std::uint8_t {
    title,
    url,
    username,
    password,
    note,
    oneTimePassword,
    folder,
};

/// The usual names of a kind of column. Of several in one header the first in this order counts.
[[nodiscard]] ColumnNames usualNames(UsualColumn column) noexcept;

} // namespace Rellinor
