#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "Private/Proxies/CSVCursor.hpp"
#include "Private/Proxies/CSVKeyedRecords.hpp"
#include "Private/Proxies/CSVRecord.hpp"

namespace Rellinor {

/// A reader of comma-separated files.
class CSVFileProxyType {
public:
    CSVFileProxyType(const CSVFileProxyType&) = delete;
    CSVFileProxyType& operator=(const CSVFileProxyType&) = delete;

    /// The rows of the file, from the first; absent if the file cannot be read as text.
    [[nodiscard]] virtual std::optional<CSVCursor> records() = 0;

    /// How many cells the first row has; absent if the file cannot be read as text or has no row.
    [[nodiscard]] virtual std::optional<std::size_t> numberOfFields() = 0;

    /// One dictionary from header to cell for each data row, in file order.
    ///
    /// If the first row has every expected header, in any order and perhaps among others, it is the
    /// header row and the others are data. If it lacks one, there is no header row: every row is
    /// data, read by position.
    ///
    /// @throws TextError  the file cannot be read as text or has no row; or there is no header row
    ///                    and the first row has another number of cells than there are headers
    [[nodiscard]] virtual CSVKeyedRecords
    keyedRecords(std::span<const CSVHeader> expectedHeaders) = 0;

protected:
    CSVFileProxyType() = default;
    ~CSVFileProxyType() = default;
};

} // namespace Rellinor
