#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// The columns of Chrome's table of logins that are read.
enum class ChromeRecordKey : std::uint8_t {
    username,
    password,
    url,
};

/// Their names, in their order.
inline constexpr auto namesOfChromeRecordKeys = std::to_array<std::string_view>({
    "username_value",
    "password_value",
    "origin_url",
});
static_assert(namesOfChromeRecordKeys.size() == indexOf(ChromeRecordKey::url) + 1);

/// The name of a column as it stands in the database.
[[nodiscard]] constexpr std::string_view rawValue(ChromeRecordKey key) noexcept {
    return namesOfChromeRecordKeys[indexOf(key)];
}

/// All of them, in the order in which they are selected.
inline constexpr auto selectedChromeRecordKeys = std::array{
    ChromeRecordKey::username,
    ChromeRecordKey::url,
    ChromeRecordKey::password,
};

/// The kinds of row in the table: every one is a login.
enum class ChromeRecordType : std::uint8_t {
    password,
};

} // namespace Rellinor
