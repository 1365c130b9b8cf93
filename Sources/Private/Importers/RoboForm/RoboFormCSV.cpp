#include <algorithm>
#include <array>

#include "Private/Importers/CSVCells.hpp"
#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Name = std::string_view;

constexpr std::array<Name, 6> names = {"name", "url", "login", "pwd", "note", "folder"};

/// A quote protects cells that spreadsheets would take for formulas.
Name withoutProtection(Name cell) noexcept {
    constexpr Name protectedOnes = "@'=+-";
    const bool isProtected =
        cell.size() > 1 && cell.front() == '\'' && protectedOnes.contains(cell[1]);
    return isProtected ? cell.substr(1) : cell;
}

/// A field of a web page: `label$,x,y,type,value`, and in older files `label$:type:value`.
void readField(CSVItem& item, const CSVEntry& cell) {
    constexpr std::size_t partsBeforeValue = 3; // of the newer form

    const std::size_t end = std::min(cell.text.find("$,"), cell.text.find("$:"));
    if (end == Name::npos) {
        item.add(cell, customText, cell.label, cell.text);
        return;
    }
    const Name label = cell.text.substr(0, end);
    const char separator = cell.text[end + 1];
    Name type;
    Name rest = cell.text.substr(end + 2);
    for (std::size_t part = separator == ',' ? 0 : partsBeforeValue - 1; part < partsBeforeValue;
         ++part) {
        const std::size_t behind = std::min(rest.find(separator), rest.size());
        type = rest.substr(0, behind);
        rest.remove_prefix(std::min(behind + 1, rest.size()));
    }
    const ExtraKind usual = type == "pwd" ? customSecret : customText;
    item.add(cell, label == "TOTP KEY" ? oneTimePassword : usual, label, rest);
}

/// There is no column for the kind.
void finish(CSVItem& item) {
    const auto has = [&](CSVField field) { return !item.text(field).empty(); };
    const bool hasFields = std::ranges::any_of(item.entries(), [](const CSVEntry& entry) {
        return entry.field == none && entry.extra != folder && entry.extra != furtherURL;
    });
    if (has(username) || has(password) || hasFields) {
        item.setKind(CSVKind::login);
    } else if (has(url)) {
        item.setKind(CSVKind::other);
        item.setKindName("bookmark");
    } else {
        item.setKind(CSVKind::note);
    }
}

constexpr auto columns = std::array{
    CSVColumn{.name = "name", .field = title},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "matchurl", .extra = furtherURL, .read = readAddress},
    CSVColumn{.name = "login", .field = username},
    CSVColumn{.name = "pwd", .field = password},
    CSVColumn{.name = "note", .field = note},
    CSVColumn{.name = "folder", .extra = folder},
    CSVColumn{.name = "rffieldsv2", .read = readField},
    CSVColumn{.name = "rf_fields", .read = readField},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::roboFormCSV,
        .product = "RoboForm",
        .evidence = "the columns Login and Pwd",
        .required = names,
        .columns = columns,
        .plain = withoutProtection,
        .further = readField,
        .finish = finish,
    },
};

} // namespace

constinit const CSVTables roboFormCSV = tables;

} // namespace Rellinor
