#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "Private/Proxies/CSVDialect.hpp"
#include "Private/Proxies/CSVGrammar.hpp"
#include "Private/Proxies/CSVLine.hpp"

namespace Rellinor {

/// The separator that a first line such as `sep=;` names, as spreadsheets write it; absent if the
/// first line is another.
[[nodiscard]] std::optional<char> namedSeparator(std::string_view text) noexcept;

/// The header of a CSV text: its first row, read without mending. A stray quote inside a quoted
/// cell is a letter, and a cell that is not closed ends with the text.
struct CSVHeaderRow {
    CSVGrammar grammar;  ///< of the whole text, by what its beginning tells
    CSVLine line;        ///< no cell if the text has no row
    std::size_t end = 0; ///< where the row behind it begins

    /// @param text     without a byte-order mark; outlives the header
    /// @param dialect  a first line such as `sep=;` names another separator
    /// @throws std::bad_alloc
    CSVHeaderRow(std::string_view text, CSVDialect dialect);
};

} // namespace Rellinor
