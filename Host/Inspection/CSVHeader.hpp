#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "Host/CSVRows.hpp"
#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// What a product writes as the first row of its exports.
struct CSVLayout {
    std::string_view product;
    std::span<const std::string_view> columns;
    std::span<const std::string_view> laterColumns; ///< those that newer versions add
};

/// Where the columns of a layout are in a file, by its first row: those of the header, or else
/// those of the layout itself.
class CSVHeader {
public:
    CSVHeader(const CSVRow& firstRow, const CSVLayout& layout);

    /// Whether the first row is the header. Otherwise it is data.
    [[nodiscard]] bool isThere() const noexcept { return _isThere; }

    /// The cell of a row in a column of the layout, as it stands. A row that ends before has an
    /// empty one if there is a header, and none otherwise.
    [[nodiscard]] std::optional<std::string_view> cell(const CSVRow& row,
                                                       std::size_t column) const noexcept;

private:
    std::vector<std::size_t> _positions;
    bool _isThere = true;
};

/// Tells what is wrong with the first row of a file.
///
/// @param layouts  those that the import knows, each with another number of columns
void reportHeader(const CSVRow& firstRow, std::span<const CSVLayout> layouts,
                  Inspection& inspection);

} // namespace Rellinor::Host
