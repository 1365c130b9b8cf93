#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"

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

/// The name of a member as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(TirelExportMember member) noexcept {
    switch (member) {
        using enum TirelExportMember;
    case logins:
        return "logins";
    case notes:
        return "notes";
    case cards:
        return "cards";
    case color:
        return "color";
    case custName:
        return "custName";
    case loginName:
        return "loginName";
    case note:
        return "note";
    case pwd:
        return "pwd";
    case pwdChange:
        return "pwdChange";
    case url:
        return "url";
    case label:
        return "label";
    case text:
        return "text";
    case cardNumber:
        return "cardNumber";
    case holderName:
        return "holderName";
    case cvv:
        return "cvv";
    case pin:
        return "pin";
    case expirationDate:
        return "expirationDate";
    case day:
        return "day";
    case month:
        return "month";
    case year:
        return "year";
    }
    fault();
}

/// All names, in their order.
inline constexpr auto namesOfTirelExportMembers = std::array{
    rawValue(TirelExportMember::logins),
    rawValue(TirelExportMember::notes),
    rawValue(TirelExportMember::cards),
    rawValue(TirelExportMember::color),
    rawValue(TirelExportMember::custName),
    rawValue(TirelExportMember::loginName),
    rawValue(TirelExportMember::note),
    rawValue(TirelExportMember::pwd),
    rawValue(TirelExportMember::pwdChange),
    rawValue(TirelExportMember::url),
    rawValue(TirelExportMember::label),
    rawValue(TirelExportMember::text),
    rawValue(TirelExportMember::cardNumber),
    rawValue(TirelExportMember::holderName),
    rawValue(TirelExportMember::cvv),
    rawValue(TirelExportMember::pin),
    rawValue(TirelExportMember::expirationDate),
    rawValue(TirelExportMember::day),
    rawValue(TirelExportMember::month),
    rawValue(TirelExportMember::year),
};

} // namespace Rellinor
