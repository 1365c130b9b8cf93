#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

#include "Private/Importers/Firefox/FirefoxProfileKey.hpp"
#include "Private/Proxies/JSONValue.hpp"
#include "Private/Proxies/SQLiteRow.hpp"

namespace Rellinor {

/// What a login has under a key.
struct FirefoxValue {
    std::optional<std::string_view> text;
    std::optional<std::int64_t> integer;
    bool isThere = false; ///< perhaps as something else
};

/// An entry of either login store; a view.
class FirefoxProfileRecord {
public:
    /// @param element  of the list in "logins.json"; may be anything
    explicit FirefoxProfileRecord(const JSONValue& element) noexcept : _entry(element) {}

    /// @param row  of "signons.sqlite"
    explicit FirefoxProfileRecord(const SQLiteRow& row) noexcept : _entry(row) {}

    [[nodiscard]] bool isObject() const noexcept {
        const auto* const element = std::get_if<JSONValue>(&_entry);
        return element == nullptr || element->object().has_value();
    }

    [[nodiscard]] FirefoxValue operator[](FirefoxProfileKey key) const noexcept {
        if (const auto* const row = std::get_if<SQLiteRow>(&_entry)) {
            const SQLiteValue value = (*row)[rawValue(key)].value_or(SQLiteValue());
            return {.text = value.text(), .integer = value.integer(), .isThere = !value.isAbsent()};
        }
        const auto object = std::get<JSONValue>(_entry).object();
        const auto member = object ? (*object)[key] : std::nullopt;
        const JSONValue value = member.value_or(JSONValue());
        return {.text = value.text(), .integer = value.integer(), .isThere = !value.isNull()};
    }

private:
    std::variant<JSONValue, SQLiteRow> _entry;
};

} // namespace Rellinor
