#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

// NOLINTBEGIN(cppcoreguidelines-macro-usage): the list is one
#define RELLINOR_NOTHING(...)
#define RELLINOR_CASE(number, name, ...)                                                           \
    case Layout::name:                                                                             \
        return name;

// NOLINTEND(cppcoreguidelines-macro-usage)

CSVTables csvTablesOf(Layout layout) noexcept {
    switch (layout) {
        RELLINOR_LAYOUTS(RELLINOR_NOTHING, RELLINOR_CASE)
    default:
        return {};
    }
}

} // namespace Rellinor
