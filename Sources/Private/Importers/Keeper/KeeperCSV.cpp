#include <algorithm>
#include <array>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;

/// What stands where; pairs of name and value follow.
constexpr auto columns = std::array{
    CSVColumn{.name = "folder", .extra = folder},
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "login", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "notes", .field = note},
    CSVColumn{.name = "shared folder", .extra = folder},
};

void readRow(CSVItem& item, std::span<const std::string_view> row) {
    for (std::size_t index = 0; index < std::min(row.size(), columns.size()); ++index) {
        const CSVColumn& column = columns[index];
        item.add({.field = column.field,
                  .extra = column.extra,
                  .name = column.name,
                  .label = column.name,
                  .text = row[index]});
    }
    bool hasFields = false;
    for (std::size_t index = columns.size(); index < row.size(); index += 2) {
        const std::string_view label = row[index];
        const bool isAlone = index + 1 == row.size(); // then it is not known for a name
        const ExtraKind kind = label == "TFC:Keeper" ? oneTimePassword : customText;
        const std::string_view text = isAlone ? label : row[index + 1];
        item.add({.extra = kind, .label = isAlone ? std::string_view() : label, .text = text});
        hasFields = hasFields || !text.empty();
    }
    const bool isLogin = !item.text(username).empty() || !item.text(password).empty() ||
                         !item.text(url).empty() || hasFields;
    item.setKind(isLogin ? CSVKind::login : CSVKind::note);
}

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::keeperCSV,
        .product = "Keeper",
        .readRow = readRow,
    },
};

} // namespace

constinit const CSVTables keeperCSV = tables;

} // namespace Rellinor
