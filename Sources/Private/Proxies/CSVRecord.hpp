#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// A column that an importer looks for.
struct CSVHeader {
    std::string_view name; ///< as it stands in the file; a literal
    std::size_t key = 0;   ///< its place in the records
};

/// The headers of the columns that `keys` name, in their order.
template <RecordKey Key, std::size_t count>
[[nodiscard]] constexpr std::array<CSVHeader, count>
csvHeaders(const std::array<Key, count>& keys) noexcept {
    std::array<CSVHeader, count> headers{};
    std::ranges::transform(keys, headers.begin(),
                           [](Key key) { return CSVHeader{rawValue(key), indexOf(key)}; });
    return headers;
}

/// One data row as a dictionary from column key to cell text, without owning the texts.
class CSVRecord {
public:
    /// @param cells  for each key its cell; a view without data where the row has none
    explicit CSVRecord(std::span<const std::string_view> cells) noexcept : _cells(cells) {}

    /// The cell of a column; absent if the record has no such column.
    [[nodiscard]] std::optional<std::string_view> operator[](RecordKey auto key) const noexcept {
        const std::size_t index = indexOf(key);
        if (index >= _cells.size() || _cells[index].data() == nullptr) {
            return std::nullopt;
        }
        return _cells[index];
    }

private:
    std::span<const std::string_view> _cells;
};

} // namespace Rellinor
