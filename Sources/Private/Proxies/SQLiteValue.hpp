#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace Rellinor {

/// What one column holds in one row: a number, a text, bytes or nothing. Texts and bytes belong to
/// the import's memory.
class SQLiteValue {
public:
    /// An absent value.
    SQLiteValue() noexcept = default;

    explicit SQLiteValue(std::int64_t integer) noexcept : _value(integer) {}

    explicit SQLiteValue(float number) noexcept : _value(number) {}

    explicit SQLiteValue(std::string_view text) noexcept : _value(text) {}

    explicit SQLiteValue(std::span<const char> blob) noexcept : _value(blob) {}

    [[nodiscard]] bool isAbsent() const noexcept {
        return std::holds_alternative<std::monostate>(_value);
    }

    // Each absent if the value is of another type.

    [[nodiscard]] std::optional<std::int64_t> integer() const noexcept {
        return valueAs<std::int64_t>();
    }

    [[nodiscard]] std::optional<float> number() const noexcept { return valueAs<float>(); }

    [[nodiscard]] std::optional<std::string_view> text() const noexcept {
        return valueAs<std::string_view>();
    }

    [[nodiscard]] std::optional<std::span<const char>> blob() const noexcept {
        return valueAs<std::span<const char>>();
    }

private:
    template <typename Type>
    [[nodiscard]] std::optional<Type> valueAs() const noexcept {
        const Type* const value = std::get_if<Type>(&_value);
        return value != nullptr ? std::optional(*value) : std::nullopt;
    }

    std::variant<std::monostate, std::int64_t, float, std::string_view, std::span<const char>>
        _value;
};

} // namespace Rellinor
