#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include <Rellinor/Extras.hpp>
#include <Rellinor/Layout.hpp>
#include <Rellinor/Models/ImportSource.hpp>

#include "Private/Importers/CSVItem.hpp"
#include "Private/Proxies/CSVTable.hpp"

namespace Rellinor {

/// The names of columns, in lower case.
using ColumnNames = std::span<const std::string_view>;

/// Adds to an item what stands in a cell that is not empty.
using CSVCellReader = void (*)(CSVItem& item, const CSVEntry& cell);

/// A column that a layout knows. Its cells are a field, an extra, unread, or what `read` makes of
/// them.
struct CSVColumn {
    std::string_view name; ///< in lower case
    CSVField field = CSVField::none;
    /// What a text is that is no field of its record; `other` for what the field suggests.
    ExtraKind extra = ExtraKind::other;
    std::string_view unread = {}; ///< a part that never arrives
    CSVCellReader read = nullptr;
};

/// A kind of entry by the name that the product gives it.
struct CSVKindName {
    std::string_view name;
    CSVKind kind;
};

/// Columns beside those that a layout knows, which a header may have all the same.
enum class OtherColumns : std::uint8_t {
    any,  ///< the required names are used by no other product
    few,  ///< fewer than the known ones
    none, ///< the required names are usual ones
};

/// What a column is that has no fixed name, and its label.
struct CSVOtherColumn {
    CSVColumn column;
    std::string_view label;
};

/// A CSV file that a product writes: how it is recognised, and what is in it. Names are compared
/// without regard to case and surrounding blanks, in any order.
struct CSVLayout {
    Layout layout;
    std::string_view product;
    std::string_view evidence = {}; ///< the names that tell, for people
    /// All of them have to be there. None for a file without a header, and for one whose usual
    /// names tell.
    ColumnNames required = {};
    std::span<const CSVColumn> columns = {}; ///< the required ones, and others that it may have
    OtherColumns others = OtherColumns::any;
    /// The source that takes a header of `exactNames`, in any order.
    std::optional<ImportSource> source = std::nullopt;
    ColumnNames exactNames = {}; ///< with regard to case and blanks
    CSVQuotes quotes = CSVQuotes::doubled;

    /// The kinds by what the cell of the field `kind` says.
    std::span<const CSVKindName> kinds = {};
    /// What a row is that does not say its kind.
    CSVKind usualKind = CSVKind::login;

    // What needs more than a table; each may be null.

    /// What a column of another name is, if the layout has a rule for such names.
    std::optional<CSVOtherColumn> (*otherColumn)(std::string_view name) = nullptr;
    /// The text that is written in a cell.
    std::string_view (*plain)(std::string_view cell) = nullptr;
    /// Reads a cell beyond the header.
    CSVCellReader further = nullptr;
    /// How much of a file without a header is no row but stands in front of them, a line feed
    /// behind it included.
    std::size_t (*lengthOfHeading)(std::string_view text) = nullptr;
    /// Reads a row of a file without a header.
    void (*readRow)(CSVItem& item, std::span<const std::string_view> row) = nullptr;
    /// Sees to the rest, once the cells are read and the kind is known as far as cells tell it.
    void (*finish)(CSVItem& item) = nullptr;
};

/// The tables of one layout: one for each kind of file that the layout stands for.
using CSVTables = std::span<const CSVLayout>;

} // namespace Rellinor
