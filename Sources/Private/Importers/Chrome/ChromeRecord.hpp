#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"

namespace Rellinor {

/// The columns of Chrome's table of logins that are read.
enum class ChromeRecordKey : std::uint8_t {
    username,
    password,
    url,
};

/// All of them, in the order in which they are selected.
inline constexpr auto selectedChromeRecordKeys = std::array{
    ChromeRecordKey::username,
    ChromeRecordKey::url,
    ChromeRecordKey::password,
};

/// The name of a column as it stands in the database.
[[nodiscard]] constexpr std::string_view rawValue(ChromeRecordKey key) noexcept {
    switch (key) {
        using enum ChromeRecordKey;
    case username:
        return "username_value";
    case password:
        return "password_value";
    case url:
        return "origin_url";
    }
    fault();
}

/// The kinds of row in the table: every one is a login.
enum class ChromeRecordType : std::uint8_t {
    password,
};

} // namespace Rellinor
