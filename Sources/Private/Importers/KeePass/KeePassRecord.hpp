#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// The columns of the exports of KeePass and KeePassXC.
enum class KeePassRecordKey : std::uint8_t {
    account,
    login,
    password,
    site,
    comments,
    group,
    title,
    username,
    url,
    notes,
};

/// Their names, in their order.
inline constexpr auto namesOfKeePassRecordKeys = std::to_array<std::string_view>({
    "Account",
    "Login Name",
    "Password",
    "Web Site",
    "Comments",
    "Group",
    "Title",
    "Username",
    "URL",
    "Notes",
});
static_assert(namesOfKeePassRecordKeys.size() == indexOf(KeePassRecordKey::notes) + 1);

/// The name of a column as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(KeePassRecordKey key) noexcept {
    return namesOfKeePassRecordKeys[indexOf(key)];
}

} // namespace Rellinor
