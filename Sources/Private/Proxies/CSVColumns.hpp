#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "Private/Proxies/CSVRecord.hpp"

namespace Rellinor {

/// Which cell of a row belongs to which expected header.
class CSVColumns {
public:
    struct Column {
        std::size_t position; ///< of the cell in the row
        std::size_t key;      ///< of the header that it belongs to
    };

    /// The columns of a file that begins with a header row. A row that is too short has empty texts
    /// in the columns it lacks.
    ///
    /// @param positions  for each expected header, where it first stands in the header row
    /// @throws TextError  a position is absent
    [[nodiscard]] static CSVColumns
    fromHeaderRow(std::span<const CSVHeader> expectedHeaders,
                  std::span<const std::optional<std::size_t>> positions);

    /// The columns of a file without a header row: the expected headers in their order. A row that
    /// is too short lacks the columns it has no cell for.
    ///
    /// @param numberOfFields  how many cells the first row has
    /// @throws TextError  it is not the number of expected headers
    [[nodiscard]] static CSVColumns byPosition(std::span<const CSVHeader> expectedHeaders,
                                               std::size_t numberOfFields);

    /// In the order of their positions. Two columns may have one key: the later then counts.
    [[nodiscard]] std::span<const Column> columns() const noexcept { return _columns; }

    /// The cells of a row that has none, one for each key.
    [[nodiscard]] std::span<const std::string_view> emptyRow() const noexcept { return _emptyRow; }

private:
    CSVColumns() = default;

    void add(Column column, std::string_view missingCell);

    std::vector<Column> _columns;
    std::vector<std::string_view> _emptyRow;
};

} // namespace Rellinor
