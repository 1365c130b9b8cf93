#include <array>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;

constexpr std::array<std::string_view, 7> names = {"title", "username", "email", "password",
                                                   "url",   "otpauth",  "notes"};

constexpr auto columns = std::array{
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "email", .extra = ExtraKind::email},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "otpauth", .extra = ExtraKind::oneTimePassword},
    CSVColumn{.name = "notes", .field = note},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::strongboxCSV,
        .product = "Strongbox",
        .evidence = "the columns Title, Email, OTPAuth and Notes",
        .required = names,
        .columns = columns,
    },
};

} // namespace

constinit const CSVTables strongboxCSV = tables;

} // namespace Rellinor
