#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <variant>

#include "Private/Importers/Tirel/TirelExportMember.hpp"
#include "Private/Proxies/JSONValue.hpp"
#include "Private/Proxies/RecordKey.hpp"

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

/// Their names, in their order.
inline constexpr auto namesOfTirelRecordKeys = std::to_array<std::string_view>({
    "expirationDay",
    "expirationMonth",
    "expirationYear",
    "cardNumber",
    "color",
    "custName",
    "cvv",
    "holderName",
    "label",
    "note",
    "url",
    "username",
    "password",
    "pin",
    "pwdChange",
    "text",
});
static_assert(namesOfTirelRecordKeys.size() == indexOf(TirelRecordKey::text) + 1);

/// The name of a key, which is not always that of the member it stands for.
[[nodiscard]] constexpr std::string_view rawValue(TirelRecordKey key) noexcept {
    return namesOfTirelRecordKeys[indexOf(key)];
}

/// The key of that name; absent if there is none.
[[nodiscard]] std::optional<TirelRecordKey> tirelRecordKeyOf(std::string_view rawValue) noexcept;

/// The kinds of raw record.
enum class TirelRecordType : std::uint8_t {
    webPassword,
    secureNote,
    creditCard,
};

/// A raw record by the names of its keys, as `TirelExportData` gives it of an entry, whose texts it
/// points into. An import has a `TirelRecord` instead, which costs no memory.
struct TirelDictionary {
    std::map<std::string_view, std::variant<std::string_view, std::int64_t>> values;
};

/// One entry of a Tirel export as a dictionary from key to text or integer; a view.
class TirelRecord {
public:
    /// @param type   of the list that the entry stands in
    /// @param entry  of that list
    TirelRecord(TirelRecordType type, const JSONObject& entry) noexcept;

    /// The value of a key; absent if the record has no such key.
    [[nodiscard]] std::optional<JSONValue> operator[](TirelRecordKey key) const noexcept {
        const JSONValue value = _values[indexOf(key)];
        return value.isNull() ? std::nullopt : std::optional(value);
    }

    // The value of a key, absent too if it is of another type.

    [[nodiscard]] std::optional<std::string_view> text(TirelRecordKey key) const noexcept {
        return _values[indexOf(key)].text();
    }

    [[nodiscard]] std::optional<std::int64_t> integer(TirelRecordKey key) const noexcept {
        return _values[indexOf(key)].integer();
    }

private:
    // Those that the entry has not are nowhere.
    std::array<JSONValue, namesOfTirelRecordKeys.size()> _values;
};

} // namespace Rellinor
