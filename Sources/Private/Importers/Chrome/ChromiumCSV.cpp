#include <array>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;

constexpr std::array<std::string_view, 4> names = {"name", "url", "username", "password"};

constexpr auto columns = std::array{
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "note", .field = note},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::chromiumCSV,
        .product = "Chrome, Edge or another Chromium browser",
        .evidence = "the columns name, url, username and password, or these and note",
        .required = names,
        .columns = columns,
        .others = OtherColumns::none,
    },
};

} // namespace

constinit const CSVTables chromiumCSV = tables;

} // namespace Rellinor
