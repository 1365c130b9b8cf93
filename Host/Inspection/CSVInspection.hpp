#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <Rellinor/Rellinor.hpp>

#include "Host/CSVRows.hpp"
#include "Host/Inspection/Inspection.hpp"

// What the inspections of all CSV files share.

namespace Rellinor::Host {

/// The rows of the file at `path`. Absent if it has no text, which `inspection` is then told of, as
/// it is of what is wrong with the text as a whole.
///
/// @param result  what importing the file gave
[[nodiscard]] std::optional<CSVRows>
rowsToInspect(const std::string& path, const RecordsResult& result, Inspection& inspection);

/// Tells that a file has no row, unless that is explained.
void reportBlank(Inspection& inspection);

/// What is wrong with a row if another separator than the comma explains why it has a single cell;
/// empty otherwise.
///
/// @param fewest  how many cells it should have at least
[[nodiscard]] std::string otherSeparator(const CSVRow& row, std::size_t fewest);

/// Adds a remark unless it has no place.
void addIfAnywhere(std::vector<Remark>& remarks, Remark remark);

/// Adds a place to a remark, unless it was the last that was added.
void addOnce(Remark& remark, std::size_t place);

/// How many rows have text in a part that never arrives.
class FilledCells {
public:
    /// @param what  names the part, such as `column "fav"`
    explicit FilledCells(std::string what) : _what(std::move(what)) {}

    void look(bool filled) noexcept { _count += filled ? 1U : 0U; }

    /// Adds a remark if there are any.
    void report(Inspection& inspection) const;

private:
    std::string _what;
    std::size_t _count = 0;
};

} // namespace Rellinor::Host
