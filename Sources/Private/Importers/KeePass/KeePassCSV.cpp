#include <array>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Name = std::string_view;

constexpr std::array<Name, 5> keePassNames = {"account", "login name", "password", "web site",
                                              "comments"};
constexpr std::array<Name, 5> keePassExactNames = {"Account", "Login Name", "Password", "Web Site",
                                                   "Comments"};
constexpr std::array<Name, 6> keePassXCNames = {"group",    "title", "username",
                                                "password", "url",   "notes"};
constexpr std::array<Name, 6> keePassXCExactNames = {"Group",    "Title", "Username",
                                                     "Password", "URL",   "Notes"};

constexpr auto keePassColumns = std::array{
    CSVColumn{.name = "account", .field = title},
    CSVColumn{.name = "login name", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "web site", .field = url},
    CSVColumn{.name = "comments", .field = note},
};

constexpr auto keePassXCColumns = std::array{
    CSVColumn{.name = "group", .extra = folder},
    CSVColumn{.name = "title", .field = title},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "notes", .field = note},
    CSVColumn{.name = "totp", .extra = oneTimePassword},
    CSVColumn{.name = "icon", .unread = "icon"},
    CSVColumn{.name = "last modified", .extra = modifiedAt},
    CSVColumn{.name = "created", .extra = createdAt},
};

constexpr auto keePassTables = std::array{
    CSVLayout{
        .layout = Layout::keePassCSV,
        .product = "KeePass",
        .evidence = "the columns Account, Login Name, Password, Web Site and Comments",
        .required = keePassNames,
        .columns = keePassColumns,
        .source = ImportSource::keePass,
        .exactNames = keePassExactNames,
        .quotes = CSVQuotes::backslashed,
    },
};

constexpr auto keePassXCTables = std::array{
    CSVLayout{
        .layout = Layout::keePassXCCSV,
        .product = "KeePassXC",
        .evidence = "the columns Group, Title, Username, Password, URL and Notes",
        .required = keePassXCNames,
        .columns = keePassXCColumns,
        .others = OtherColumns::few,
        .source = ImportSource::keePassXC,
        .exactNames = keePassXCExactNames,
    },
};

} // namespace

constinit const CSVTables keePassCSV = keePassTables;
constinit const CSVTables keePassXCCSV = keePassXCTables;

} // namespace Rellinor
