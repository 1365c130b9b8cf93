#pragma once

#include <string_view>

#include "Private/Importers/CSVItem.hpp"

// Readers of cells that several layouts have.

namespace Rellinor {

/// Yes or no: an extra "true" of the column's kind if it is yes, nothing if it is no. Any other
/// text is an extra as it stands.
void readFlag(CSVItem& item, const CSVEntry& cell);

/// Tags with semicolons or else commas between them.
void readTags(CSVItem& item, const CSVEntry& cell);

/// An address.
void readAddress(CSVItem& item, const CSVEntry& cell);

/// Addresses with commas between them, blanks behind these aside. If one of them has no scheme the
/// cell is one address.
void readAddresses(CSVItem& item, const CSVEntry& cell);

} // namespace Rellinor
