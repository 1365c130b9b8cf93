#include <array>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;

constexpr std::array<std::string_view, 4> names = {"title", "url", "username", "password"};

constexpr auto columns = std::array{
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "notes", .field = note},
    CSVColumn{.name = "otpauth", .extra = ExtraKind::oneTimePassword},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::appleCSV,
        .product = "Apple Passwords or Safari",
        .evidence = "the columns Title, URL, Username and Password, or these, Notes and OTPAuth",
        .required = names,
        .columns = columns,
        .others = OtherColumns::none,
    },
};

} // namespace

constinit const CSVTables appleCSV = tables;

} // namespace Rellinor
