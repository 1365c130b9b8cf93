#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

#include "Host/CSVRows.hpp"
#include "Host/Inspection/CSVHeader.hpp"
#include "Host/Inspection/CSVQuotes.hpp"
#include "Host/Inspection/CSVRowLengths.hpp"
#include "Host/Inspection/CSVTexts.hpp"
#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// A data row of a file with named columns.
class KeyedRow {
public:
    KeyedRow(const CSVRow& row, const CSVHeader& header) noexcept : _row(&row), _header(&header) {}

    [[nodiscard]] std::size_t line() const noexcept { return _row->line; }

    /// The cell of a column as it stands; absent if the row of a file without a header ends before.
    [[nodiscard]] std::optional<std::string_view> cell(std::size_t column) const noexcept {
        return _header->cell(*_row, column);
    }

    /// The text of a column, as it is imported; empty if it is missing.
    [[nodiscard]] std::string_view text(std::size_t column) const noexcept {
        return unquoted(cell(column).value_or(""));
    }

private:
    const CSVRow* _row;
    const CSVHeader* _header;
};

/// The rows of a CSV file with named columns, which are looked at for whatever can be wrong with
/// any of them.
class KeyedCSV {
public:
    /// Reads the first row.
    ///
    /// @param layouts  those that the import knows, each with another number of columns
    KeyedCSV(const std::string& path, const RecordsResult& result,
             std::span<const CSVLayout> layouts, Inspection& inspection);

    /// The layout that the import takes the file for, by its first row; null if it fails.
    [[nodiscard]] const CSVLayout* layout() const noexcept { return _layout; }

    /// Reads the next data row; absent if there is none.
    [[nodiscard]] std::optional<KeyedRow> next();

    /// Looks at the password of the current row, if it arrives.
    void lookAtPassword(std::size_t column);

    /// Looks at another text of the current row, if it arrives.
    void lookAtText(std::size_t column);

    /// Tells the inspection what was found.
    ///
    /// @param escapesBackslashes  whether the product writes each backslash twice
    void report(bool escapesBackslashes = false);

private:
    void readFirstRow(std::span<const CSVLayout> layouts);

    Inspection* _inspection;
    std::optional<CSVRows> _rows;
    const CSVLayout* _layout = nullptr;
    std::optional<CSVHeader> _header;
    std::optional<CSVRowLengths> _lengths;
    CSVQuotes _quotes;
    CSVTexts _texts;
    CSVRow _row;
    bool _isFirst = true;
    bool _runsOn = false; ///< the current row, so that nothing in it is where it belongs
};

} // namespace Rellinor::Host
