#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "Platform/Fault.hpp"
#include "Private/Importers/Tirel/TirelExportMember.hpp"
#include "Private/Proxies/JSONValue.hpp"

namespace Rellinor {

/// The keys of a raw record.
enum class TirelRecordKey : std::uint8_t {
    expirationDay,
    expirationMonth,
    expirationYear,
    cardNumber,
    color,
    custName,
    cvv,
    holderName,
    label,
    note,
    url,
    username,
    password,
    pin,
    pwdChange,
    text,
};

/// The name of a key, which is not always that of the member it stands for.
[[nodiscard]] constexpr std::string_view rawValue(TirelRecordKey key) noexcept {
    switch (key) {
        using enum TirelRecordKey;
    case expirationDay:
        return "expirationDay";
    case expirationMonth:
        return "expirationMonth";
    case expirationYear:
        return "expirationYear";
    case cardNumber:
        return "cardNumber";
    case color:
        return "color";
    case custName:
        return "custName";
    case cvv:
        return "cvv";
    case holderName:
        return "holderName";
    case label:
        return "label";
    case note:
        return "note";
    case url:
        return "url";
    case username:
        return "username";
    case password:
        return "password";
    case pin:
        return "pin";
    case pwdChange:
        return "pwdChange";
    case text:
        return "text";
    }
    fault();
}

inline constexpr std::size_t numberOfTirelRecordKeys =
    std::size_t{std::to_underlying(TirelRecordKey::text)} + 1;

/// The key of that name; absent if there is none.
[[nodiscard]] std::optional<TirelRecordKey> tirelRecordKeyOf(std::string_view rawValue) noexcept;

/// The kinds of raw record.
enum class TirelRecordType : std::uint8_t {
    webPassword,
    secureNote,
    creditCard,
};

/// One entry of a Tirel export as a dictionary from key to text or integer; a view.
class TirelRecord {
public:
    /// @param type   of the list that the entry stands in
    /// @param entry  of that list
    TirelRecord(TirelRecordType type, const JSONObject& entry) noexcept;

    /// The value of a key; absent if the record has no such key.
    [[nodiscard]] std::optional<JSONValue> operator[](TirelRecordKey key) const noexcept {
        const JSONValue value = _values[std::to_underlying(key)];
        return value.isNull() ? std::nullopt : std::optional(value);
    }

private:
    // Those that the entry has not are nowhere.
    std::array<JSONValue, numberOfTirelRecordKeys> _values;
};

} // namespace Rellinor
