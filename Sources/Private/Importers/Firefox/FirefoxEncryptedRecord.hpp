#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"

namespace Rellinor {

/// What is read of a login, by the names of its fields in both of Firefox's login stores.
enum class EncryptedKeys : std::uint8_t {
    host,
    user,
    password,
};

/// All of them, in their order.
inline constexpr auto allEncryptedKeys = std::array{
    EncryptedKeys::host,
    EncryptedKeys::user,
    EncryptedKeys::password,
};

/// The name of a field as it stands in the store.
[[nodiscard]] constexpr std::string_view rawValue(EncryptedKeys key) noexcept {
    switch (key) {
        using enum EncryptedKeys;
    case host:
        return "hostname";
    case user:
        return "encryptedUsername";
    case password:
        return "encryptedPassword";
    }
    fault();
}

/// A login with all its fields. User name and password are as they were stored, encrypted.
struct FirefoxEncryptedRecord {
    std::string_view host;
    std::string_view password;
    std::string_view username;
};

} // namespace Rellinor
