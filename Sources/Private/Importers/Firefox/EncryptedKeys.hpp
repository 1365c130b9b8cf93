#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// What is read of a login, by the names of its fields in both of Firefox's login stores.
enum class EncryptedKeys : std::uint8_t {
    host,
    user,
    password,
};

/// Their names, in their order.
inline constexpr auto namesOfEncryptedKeys = std::to_array<std::string_view>({
    "hostname",
    "encryptedUsername",
    "encryptedPassword",
});
static_assert(namesOfEncryptedKeys.size() == indexOf(EncryptedKeys::password) + 1);

/// The name of a field as it stands in the store.
[[nodiscard]] constexpr std::string_view rawValue(EncryptedKeys key) noexcept {
    return namesOfEncryptedKeys[indexOf(key)];
}

} // namespace Rellinor
