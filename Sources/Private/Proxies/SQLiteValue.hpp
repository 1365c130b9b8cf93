#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace Rellinor {

// A union and not a variant: two words instead of three, of which a database may have very many.
// NOLINTBEGIN(*-union-access,*-stringview-data-usage)

/// What one column holds in one row: a number, a text, bytes or nothing. Texts and bytes belong to
/// the import's memory.
class SQLiteValue {
public:
    /// An absent value.
    SQLiteValue() noexcept = default;

    explicit SQLiteValue(std::int64_t integer) noexcept
        : _content{.integer = integer}, _type(Type::integer) {}

    explicit SQLiteValue(double number) noexcept
        : _content{.number = number}, _type(Type::number) {}

    /// @param text  less than 4 GiB
    explicit SQLiteValue(std::string_view text) noexcept
        : _content{.bytes = text.data()}, _size(static_cast<std::uint32_t>(text.size())),
          _type(Type::text) {}

    /// @param blob  less than 4 GiB
    explicit SQLiteValue(std::span<const char> blob) noexcept
        : _content{.bytes = blob.data()}, _size(static_cast<std::uint32_t>(blob.size())),
          _type(Type::blob) {}

    [[nodiscard]] bool isAbsent() const noexcept { return _type == Type::absent; }

    // Each absent if the value is of another type.

    [[nodiscard]] std::optional<std::int64_t> integer() const noexcept {
        return _type == Type::integer ? std::optional(_content.integer) : std::nullopt;
    }

    [[nodiscard]] std::optional<double> number() const noexcept {
        return _type == Type::number ? std::optional(_content.number) : std::nullopt;
    }

    [[nodiscard]] std::optional<std::string_view> text() const noexcept {
        return _type == Type::text ? std::optional(std::string_view(_content.bytes, _size))
                                   : std::nullopt;
    }

    [[nodiscard]] std::optional<std::span<const char>> blob() const noexcept {
        return _type == Type::blob ? std::optional(std::span(_content.bytes, _size)) : std::nullopt;
    }

private:
    enum class Type : std::uint8_t { absent, integer, number, text, blob };

    union Content {
        std::int64_t integer;
        double number;
        const char* bytes;
    };

    Content _content = {.integer = 0};
    std::uint32_t _size = 0; // of a text or blob
    Type _type = Type::absent;
};

// NOLINTEND(*-union-access,*-stringview-data-usage)

static_assert(sizeof(SQLiteValue) == 16);

} // namespace Rellinor
