#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace Rellinor {

/// What a column of a Chromium browser's table of logins is.
enum class ChromiumRole : std::uint8_t {
    url,
    furtherURL, ///< the URL if there is no other; an extra in any case
    username,
    password,
    passwordChangedAt,
    createdAt,
    lastUsedAt,
    otherTime,
    detail,   ///< an extra
    excluded, ///< whether the user wants nothing saved for the site
    key,      ///< of the row
    unread,
    unknown, ///< a column that no known browser has
};

struct ChromiumColumn {
    std::string_view name;
    ChromiumRole role = ChromiumRole::unknown;
};

/// The columns that browsers have had.
inline constexpr auto chromiumColumns = [] {
    using enum ChromiumRole;
    return std::array{
        ChromiumColumn{"origin_url", url},
        ChromiumColumn{"action_url", furtherURL},
        ChromiumColumn{"signon_realm", furtherURL},
        ChromiumColumn{"username_value", username},
        ChromiumColumn{"password_value", password},
        ChromiumColumn{"date_password_modified", passwordChangedAt},
        ChromiumColumn{"date_created", createdAt},
        ChromiumColumn{"date_last_used", lastUsedAt},
        ChromiumColumn{"date_last_filled", otherTime},
        ChromiumColumn{"date_received", otherTime},
        ChromiumColumn{"username_element", detail},
        ChromiumColumn{"password_element", detail},
        ChromiumColumn{"submit_element", detail},
        ChromiumColumn{"display_name", detail},
        ChromiumColumn{"federation_url", detail},
        ChromiumColumn{"sender_email", detail},
        ChromiumColumn{"sender_name", detail},
        ChromiumColumn{"times_used", detail},
        ChromiumColumn{"blacklisted_by_user", excluded},
        ChromiumColumn{"id", key},
        ChromiumColumn{"icon_url", unread},
        ChromiumColumn{"avatar_url", unread},
        ChromiumColumn{"sender_profile_image_url", unread},
        ChromiumColumn{"form_data", unread},
        ChromiumColumn{"possible_username_pairs", unread},
        ChromiumColumn{"possible_usernames", unread},
        ChromiumColumn{"moving_blocked_for", unread},
        ChromiumColumn{"keychain_identifier", unread},
        ChromiumColumn{"scheme", unread},
        ChromiumColumn{"password_type", unread},
        ChromiumColumn{"preferred", unread},
        ChromiumColumn{"ssl_valid", unread},
        ChromiumColumn{"skip_zero_click", unread},
        ChromiumColumn{"generation_upload_status", unread},
        ChromiumColumn{"sharing_notification_displayed", unread},
        ChromiumColumn{"actor_login_approved", unread},
    };
}();

/// What is known of the column of that name, which outlives the result if nothing is.
[[nodiscard]] constexpr ChromiumColumn chromiumColumn(std::string_view name) noexcept {
    const auto* const found = std::ranges::find(chromiumColumns, name, &ChromiumColumn::name);
    return found != chromiumColumns.end() ? *found : ChromiumColumn{.name = name};
}

} // namespace Rellinor
