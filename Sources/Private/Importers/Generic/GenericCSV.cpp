#include <array>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;

/// Of several columns of one field the first in this order counts.
constexpr auto columns = std::array{
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "label", .field = title},
    CSVColumn{.name = "account", .field = title},
    CSVColumn{.name = "site", .field = title},
    CSVColumn{.name = "service", .field = title},

    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "uri", .field = url},
    CSVColumn{.name = "website", .field = url},
    CSVColumn{.name = "web site", .field = url},
    CSVColumn{.name = "address", .field = url},
    CSVColumn{.name = "login_uri", .field = url},

    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "user name", .field = username},
    CSVColumn{.name = "user", .field = username},
    CSVColumn{.name = "login", .field = username},
    CSVColumn{.name = "login name", .field = username},
    CSVColumn{.name = "email", .field = username, .extra = email},
    CSVColumn{.name = "e-mail", .field = username, .extra = email},

    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "pwd", .field = password},
    CSVColumn{.name = "pass", .field = password},

    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "notes", .field = note},
    CSVColumn{.name = "comment", .field = note},
    CSVColumn{.name = "comments", .field = note},
    CSVColumn{.name = "extra", .field = note},

    CSVColumn{.name = "totp", .extra = oneTimePassword},
    CSVColumn{.name = "otp", .extra = oneTimePassword},
    CSVColumn{.name = "otpauth", .extra = oneTimePassword},
    CSVColumn{.name = "otpsecret", .extra = oneTimePassword},
    CSVColumn{.name = "otpurl", .extra = oneTimePassword},

    CSVColumn{.name = "folder", .extra = folder},
    CSVColumn{.name = "group", .extra = folder},
    CSVColumn{.name = "grouping", .extra = folder},
    CSVColumn{.name = "category", .extra = folder},
    CSVColumn{.name = "tags", .extra = folder},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::genericCSV,
        .product = {},
        .evidence = "usual names of columns, the password's among them",
        .columns = columns,
        .others = OtherColumns::none,
    },
};

} // namespace

constinit const CSVTables genericCSV = tables;

} // namespace Rellinor
