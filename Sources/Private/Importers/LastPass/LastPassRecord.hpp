#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// The columns of a LastPass export.
enum class LastPassRecordKey : std::uint8_t {
    url,
    username,
    password,
    extra,
    name,
    grouping,
    favorite,
};

/// All of them, in their order.
inline constexpr auto allLastPassRecordKeys = keysUpTo<LastPassRecordKey::favorite>();

/// Their names, in their order.
inline constexpr auto namesOfLastPassRecordKeys = std::to_array<std::string_view>({
    "url",
    "username",
    "password",
    "extra",
    "name",
    "grouping",
    "fav",
});
static_assert(namesOfLastPassRecordKeys.size() == allLastPassRecordKeys.size());

/// The name of a column as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(LastPassRecordKey key) noexcept {
    return namesOfLastPassRecordKeys[indexOf(key)];
}

/// The kinds of row in a LastPass export.
enum class LastPassRecordType : std::uint8_t {
    login,
    secureNote,
};

/// The columns that decide whether a login carries anything.
inline constexpr auto telltaleLoginColumns = std::array{
    LastPassRecordKey::url,
    LastPassRecordKey::username,
    LastPassRecordKey::password,
    LastPassRecordKey::name,
};

/// The columns that decide whether a secure note carries anything.
inline constexpr auto telltaleSecureNoteColumns = std::array{
    LastPassRecordKey::name,
    LastPassRecordKey::extra,
};

/// The columns that decide whether a row of a kind carries anything.
[[nodiscard]] constexpr std::span<const LastPassRecordKey> keys(LastPassRecordType type) noexcept {
    using Keys = std::span<const LastPassRecordKey>;
    return type == LastPassRecordType::login ? Keys(telltaleLoginColumns)
                                             : Keys(telltaleSecureNoteColumns);
}

} // namespace Rellinor
