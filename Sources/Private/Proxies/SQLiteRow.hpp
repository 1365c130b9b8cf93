#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/SQLiteValue.hpp"

namespace Rellinor {

/// One row as a dictionary from column name to value, without owning either.
class SQLiteRow {
public:
    /// @param names   of the columns, in their order; one may be there twice
    /// @param values  one for each name
    /// @param memory  what the texts and bytes among them belong to
    SQLiteRow(std::span<const std::string_view> names, std::span<const SQLiteValue> values,
              ImportMemory& memory) noexcept
        : _names(names), _values(values), _memory(&memory) {}

    /// The value of a column, which itself may be absent; absent if the row has no such column.
    [[nodiscard]] std::optional<SQLiteValue> operator[](std::string_view name) const noexcept {
        // Quirk: of two columns of one name the later counts.
        for (std::size_t column = _names.size(); column-- > 0;) {
            if (_names[column] == name) {
                return _values[column];
            }
        }
        return std::nullopt;
    }

    /// The names of the columns, in their order.
    [[nodiscard]] std::span<const std::string_view> names() const noexcept { return _names; }

    /// What stands in the columns, in their order.
    [[nodiscard]] std::span<const SQLiteValue> values() const noexcept { return _values; }

    /// What the row's texts and bytes belong to, and what is made of them may belong to as well.
    [[nodiscard]] ImportMemory& memory() const noexcept { return *_memory; }

private:
    std::span<const std::string_view> _names;
    std::span<const SQLiteValue> _values;
    ImportMemory* _memory;
};

} // namespace Rellinor
