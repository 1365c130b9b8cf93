#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

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
    static constexpr std::size_t numberOfKeys =
        std::size_t{std::to_underlying(TirelRecordKey::text)} + 1;

    std::array<JSONValue, numberOfKeys> _values; // those that the entry has not are nowhere
};

} // namespace Rellinor
