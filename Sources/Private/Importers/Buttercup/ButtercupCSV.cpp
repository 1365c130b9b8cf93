#include <array>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;

constexpr std::array<std::string_view, 6> names = {"!type", "!group_id", "!group_name",
                                                   "title", "username",  "password"};

constexpr auto kinds = std::array{
    CSVKindName{"entry", CSVKind::login},
    CSVKindName{"group", CSVKind::placeholder},
};

constexpr auto columns = std::array{
    CSVColumn{.name = "!type", .field = kind},
    CSVColumn{.name = "!group_id", .unread = "identifier"},
    CSVColumn{.name = "!group_name", .extra = ExtraKind::folder},
    CSVColumn{.name = "!group_parent", .unread = "identifier"},
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "id", .unread = "identifier"},
    CSVColumn{.name = "notes", .field = note},
    CSVColumn{.name = "note", .field = note},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::buttercupCSV,
        .product = "Buttercup",
        .evidence = "the columns !type, !group_id and !group_name",
        .required = names,
        .columns = columns,
        .kinds = kinds,
    },
};

} // namespace

constinit const CSVTables buttercupCSV = tables;

} // namespace Rellinor
