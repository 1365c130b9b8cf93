#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

#define RELLINOR_NOTHING(...)
#define RELLINOR_CASE(number, name, ...)                                                           \
    case Layout::name:                                                                             \
        return name;

CSVTables csvTablesOf(Layout layout) noexcept {
    switch (layout) {
        RELLINOR_LAYOUTS(RELLINOR_NOTHING, RELLINOR_CASE)
    default:
        return {};
    }
}

} // namespace Rellinor
