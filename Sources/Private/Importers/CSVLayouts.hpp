#pragma once

#include "Private/Importers/CSVLayout.hpp"

namespace Rellinor {

/// The tables of a layout; none if it is no CSV file.
[[nodiscard]] CSVTables csvTablesOf(Layout layout) noexcept;

// The tables of each layout, in the folder of its product.
// NOLINTBEGIN(cppcoreguidelines-macro-usage): the list is one
#define RELLINOR_NOTHING(...)
#define RELLINOR_TABLES(number, name, ...) extern const CSVTables name;
RELLINOR_LAYOUTS(RELLINOR_NOTHING, RELLINOR_TABLES)
#undef RELLINOR_TABLES
#undef RELLINOR_NOTHING
// NOLINTEND(cppcoreguidelines-macro-usage)

} // namespace Rellinor
