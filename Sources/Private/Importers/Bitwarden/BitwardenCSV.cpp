#include <algorithm>
#include <array>

#include "Private/Importers/CSVCells.hpp"
#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;

constexpr std::array<std::string_view, 8> names = {"type",           "name",      "notes",
                                                   "fields",         "login_uri", "login_username",
                                                   "login_password", "login_totp"};

/// A line `name: value` for each field. A line without a name goes on with the value before it.
void readFields(CSVItem& item, const CSVEntry& cell) {
    constexpr std::string_view separator = ": ";

    std::string_view rest = cell.text;
    while (!rest.empty()) {
        const std::size_t colon = std::min(rest.find(separator), rest.find('\n'));
        const bool hasName = colon != std::string_view::npos && rest[colon] == ':';
        const std::size_t begin = hasName ? colon + separator.size() : 0;
        // The value ends where a line with a name begins.
        std::size_t end = std::min(rest.find('\n', begin), rest.size());
        while (end < rest.size()) {
            const std::size_t next = std::min(rest.find('\n', end + 1), rest.size());
            if (rest.substr(end + 1, next - end - 1).contains(separator)) {
                break;
            }
            end = next;
        }
        item.add(cell, customText, hasName ? rest.substr(0, colon) : cell.label,
                 rest.substr(begin, end - begin));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

/// An entry is archived if it has the time.
void readArchivedDate(CSVItem& item, const CSVEntry& cell) {
    item.add(cell, archived, cell.label, "true");
    item.add(cell, other, cell.label, cell.text);
}

constexpr auto columns = std::array{
    CSVColumn{.name = "folder", .extra = folder},
    CSVColumn{.name = "collections", .extra = folder},
    CSVColumn{.name = "favorite", .extra = favourite, .read = readFlag},
    CSVColumn{.name = "type", .field = kind},
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "notes", .field = note},
    CSVColumn{.name = "fields", .read = readFields},
    CSVColumn{.name = "reprompt", .unread = "settings of the product"},
    CSVColumn{.name = "archiveddate", .read = readArchivedDate},
    CSVColumn{.name = "login_uri", .field = url, .read = readAddressesBetween<','>},
    CSVColumn{.name = "login_username", .field = username},
    CSVColumn{.name = "login_password", .field = password},
    CSVColumn{.name = "login_totp", .extra = oneTimePassword},
};

constexpr auto kinds = std::array{
    CSVKindName{"login", CSVKind::login},
    CSVKindName{"note", CSVKind::note},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::bitwardenCSV,
        .product = "Bitwarden",
        .evidence = "the columns login_uri, login_username, login_password and login_totp",
        .required = names,
        .columns = columns,
        .kinds = kinds,
    },
};

} // namespace

constinit const CSVTables bitwardenCSV = tables;

} // namespace Rellinor
