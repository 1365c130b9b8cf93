#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// The names of members anywhere in a Tirel export. `TirelExportData` tells which entry has which.
enum class TirelExportMember : std::uint8_t {
    logins,
    notes,
    cards,
    color,
    custName,
    loginName,
    note,
    pwd,
    pwdChange,
    url,
    label,
    text,
    cardNumber,
    holderName,
    cvv,
    pin,
    expirationDate,
    day,
    month,
    year,
};

/// Their names, in their order.
inline constexpr auto namesOfTirelExportMembers = std::to_array<std::string_view>({
    "logins",         "notes", "cards", "color", "custName",   "loginName",  "note", "pwd",
    "pwdChange",      "url",   "label", "text",  "cardNumber", "holderName", "cvv",  "pin",
    "expirationDate", "day",   "month", "year",
});
static_assert(namesOfTirelExportMembers.size() == indexOf(TirelExportMember::year) + 1);

/// The name of a member as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(TirelExportMember member) noexcept {
    return namesOfTirelExportMembers[indexOf(member)];
}

} // namespace Rellinor
