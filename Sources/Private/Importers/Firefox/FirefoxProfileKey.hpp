#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"

namespace Rellinor {

/// What a profile holds of a login, by the names in both of Firefox's login stores.
enum class FirefoxProfileKey : std::uint8_t {
    hostname,
    encryptedUsername,
    encryptedPassword,
    httpRealm,
    formSubmitURL,
    usernameField,
    passwordField,
    timeCreated,
    timeLastUsed,
    timePasswordChanged,
    timesUsed,
    id,
    guid,
    encType,
    syncCounter,
    everSynced,
    encryptedUnknownFields,
};

/// All of them, in their order.
inline constexpr auto allFirefoxProfileKeys = [] {
    using enum FirefoxProfileKey;
    return std::array{hostname,
                      encryptedUsername,
                      encryptedPassword,
                      httpRealm,
                      formSubmitURL,
                      usernameField,
                      passwordField,
                      timeCreated,
                      timeLastUsed,
                      timePasswordChanged,
                      timesUsed,
                      id,
                      guid,
                      encType,
                      syncCounter,
                      everSynced,
                      encryptedUnknownFields};
}();

/// The name as it stands in the stores.
[[nodiscard]] constexpr std::string_view rawValue(FirefoxProfileKey key) noexcept {
    switch (key) {
        using enum FirefoxProfileKey;
    case hostname:
        return "hostname";
    case encryptedUsername:
        return "encryptedUsername";
    case encryptedPassword:
        return "encryptedPassword";
    case httpRealm:
        return "httpRealm";
    case formSubmitURL:
        return "formSubmitURL";
    case usernameField:
        return "usernameField";
    case passwordField:
        return "passwordField";
    case timeCreated:
        return "timeCreated";
    case timeLastUsed:
        return "timeLastUsed";
    case timePasswordChanged:
        return "timePasswordChanged";
    case timesUsed:
        return "timesUsed";
    case id:
        return "id";
    case guid:
        return "guid";
    case encType:
        return "encType";
    case syncCounter:
        return "syncCounter";
    case everSynced:
        return "everSynced";
    case encryptedUnknownFields:
        return "encryptedUnknownFields";
    }
    fault();
}

} // namespace Rellinor
