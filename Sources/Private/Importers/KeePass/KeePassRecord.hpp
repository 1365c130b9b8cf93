#pragma once

#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"

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

/// The name of a column as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(KeePassRecordKey key) noexcept {
    switch (key) {
        using enum KeePassRecordKey;
    case account:
        return "Account";
    case login:
        return "Login Name";
    case password:
        return "Password";
    case site:
        return "Web Site";
    case comments:
        return "Comments";
    case group:
        return "Group";
    case title:
        return "Title";
    case username:
        return "Username";
    case url:
        return "URL";
    case notes:
        return "Notes";
    }
    fault();
}

} // namespace Rellinor
