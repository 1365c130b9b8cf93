#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include <Rellinor/Detection.hpp>

#include "Private/Detection/CSVBeginning.hpp"
#include "Private/Importers/CSVLayout.hpp"

namespace Rellinor {

/// The names of the columns of a file.
class CSVColumnNames {
public:
    CSVColumnNames(CSVCells cells, char separator, bool isPlain);

    [[nodiscard]] char separator() const noexcept { return _separator; }

    /// @param name  in lower case
    [[nodiscard]] bool has(std::string_view name) const noexcept;

    [[nodiscard]] bool hasAll(ColumnNames names) const noexcept;

    /// Whether commas and line feeds part the cells, and the names are these, in any order.
    [[nodiscard]] bool isExactly(ColumnNames names) const noexcept;

    /// Whether a layout has all that it needs; other columns aside.
    [[nodiscard]] bool fits(const CSVLayout& layout) const noexcept;

    /// How sure a layout is of the header; none if the header is not the layout's.
    [[nodiscard]] Confidence confidenceIn(const CSVLayout& layout) const noexcept;

private:
    [[nodiscard]] std::size_t numberOfOthers(const CSVLayout& layout) const noexcept;

    CSVCells _asWritten;
    CSVCells _names; // those that are no blanks, without blanks around them
    char _separator;
    bool _isPlain;
};

/// The first row, split by each of the separators that it may have: by the one that the first line
/// announces, as spreadsheets do, or else by comma, semicolon and tab.
///
/// @throws std::bad_alloc
[[nodiscard]] std::vector<CSVColumnNames> headersOf(Beginning beginning);

} // namespace Rellinor
