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
        std::size_t position; ///< the number of the cell in a row, from 0 on
        std::size_t key;      ///< the key of the header that the cell belongs to
    };

    /// The columns of a file that begins with a header row. In a row with too few cells, the
    /// missing cells are empty texts.
    ///
    /// @param positions  for each expected header, the first cell of the header row that holds it
    /// @throws TextError  a header stands nowhere
    [[nodiscard]] static CSVColumns
    fromHeaderRow(std::span<const CSVHeader> expectedHeaders,
                  std::span<const std::optional<std::size_t>> positions);

    /// The columns of a file without a header row: the expected headers in their order. In a row
    /// with too few cells, the missing cells are absent.
    ///
    /// @param numberOfFields  how many cells the first row has
    /// @throws TextError  there are not as many headers as cells
    [[nodiscard]] static CSVColumns byPosition(std::span<const CSVHeader> expectedHeaders,
                                               std::size_t numberOfFields);

    /// All columns, in the order of their positions. If two columns have one key, the later column
    /// counts.
    [[nodiscard]] std::span<const Column> columns() const noexcept { return _columns; }

    /// What stands in place of missing cells, for each key.
    [[nodiscard]] std::span<const std::string_view> emptyRow() const noexcept { return _emptyRow; }

private:
    CSVColumns() = default;

    void add(Column column, std::string_view missingCell);

    std::vector<Column> _columns;
    std::vector<std::string_view> _emptyRow;
};

} // namespace Rellinor
