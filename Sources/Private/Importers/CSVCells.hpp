#pragma once

#include <string_view>

#include "Private/Importers/CSVItem.hpp"

// Readers of cells that several layouts have.

namespace Rellinor {

/// Yes or no: an extra "true" of the column's kind if it is yes, nothing if it is no. Any other
/// text is an extra as it stands.
void readFlag(CSVItem& item, const CSVEntry& cell);

/// Tags with semicolons or else commas between them, and perhaps blanks behind these.
void readTags(CSVItem& item, const CSVEntry& cell);

/// An address.
void readAddress(CSVItem& item, const CSVEntry& cell);

/// Addresses with a separator between them. If one of them has no scheme the cell is one address.
void readAddresses(CSVItem& item, const CSVEntry& cell, std::string_view separator);

/// The same for a table of columns.
template <char... characters>
void readAddressesBetween(CSVItem& item, const CSVEntry& cell) {
    static constexpr char separator[] = {characters...};
    readAddresses(item, cell, {separator, sizeof...(characters)});
}

} // namespace Rellinor
