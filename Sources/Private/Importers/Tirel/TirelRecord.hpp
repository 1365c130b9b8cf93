#pragma once

#include <cstdint>
#include <optional>

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
    TirelRecord(TirelRecordType type, const JSONObject& entry) noexcept
        : _type(type), _entry(entry) {}

    /// The value of a key; absent if the record has no such key.
    [[nodiscard]] std::optional<JSONValue> operator[](TirelRecordKey key) const noexcept;

private:
    TirelRecordType _type;
    JSONObject _entry;
};

} // namespace Rellinor
