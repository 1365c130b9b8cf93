#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <memory>

#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;
using Names = std::array<std::string_view, 6>;

constexpr Names names = {"url", "username", "password", "httprealm", "formactionorigin", "guid"};
constexpr Names olderNames = {"url", "username", "password", "httprealm", "formsubmiturl", "guid"};

/// Milliseconds become the seconds that a login has, in the same digits.
void readPasswordChange(CSVItem& item, const CSVEntry& cell) {
    constexpr std::size_t digitsOfMilliseconds = 3;

    std::int64_t time = 0;
    const char* const end = std::to_address(cell.text.end());
    const auto [rest, error] = std::from_chars(std::to_address(cell.text.begin()), end, time);
    if (error != std::errc() || rest != end || time < 0) {
        item.reporter().found(FindingKind::unreadableDate, cell.name);
        item.add(cell, other, cell.label, cell.text);
        return;
    }
    const std::size_t digits = std::max(cell.text.size(), digitsOfMilliseconds);
    CSVEntry seconds = cell;
    seconds.field = passwordChange;
    seconds.text = cell.text.substr(0, digits - digitsOfMilliseconds);
    item.add(seconds);
}

void finish(CSVItem& item) {
    if (item.text(url) == "chrome://FirefoxAccounts") {
        item.setKind(CSVKind::browserAccount);
    }
}

constexpr auto columns = std::array{
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "httprealm"},
    CSVColumn{.name = "formactionorigin"},
    CSVColumn{.name = "formsubmiturl"},
    CSVColumn{.name = "guid", .unread = "guid"},
    CSVColumn{.name = "timecreated", .extra = createdAt},
    CSVColumn{.name = "timelastused", .extra = lastUsedAt},
    CSVColumn{.name = "timepasswordchanged", .read = readPasswordChange},
};

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::firefoxCSV,
        .product = "Firefox",
        .evidence = "the columns httpRealm, formActionOrigin and guid",
        .required = names,
        .columns = columns,
        .finish = finish,
    },
    CSVLayout{
        .layout = Layout::firefoxCSV,
        .product = "Firefox",
        .evidence = "the columns httpRealm, formSubmitURL and guid",
        .required = olderNames,
        .columns = columns,
        .finish = finish,
    },
};

} // namespace

constinit const CSVTables firefoxCSV = tables;

} // namespace Rellinor
