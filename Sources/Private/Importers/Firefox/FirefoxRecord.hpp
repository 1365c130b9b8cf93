#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// The keys of a login of Firefox.
enum class FirefoxRecordKey : std::uint8_t {
    hostname,
    username,
    password,
};

/// Their names, in their order.
inline constexpr auto namesOfFirefoxRecordKeys = std::to_array<std::string_view>({
    "Hostname",
    "Username",
    "Password",
});
static_assert(namesOfFirefoxRecordKeys.size() == indexOf(FirefoxRecordKey::password) + 1);

/// The name of a key.
[[nodiscard]] constexpr std::string_view rawValue(FirefoxRecordKey key) noexcept {
    return namesOfFirefoxRecordKeys[indexOf(key)];
}

/// One login as a dictionary from key to text, without owning the texts.
class FirefoxRecord {
public:
    void set(FirefoxRecordKey key, std::string_view text) noexcept { _texts[indexOf(key)] = text; }

    /// The text of a key; absent if the record has no such key.
    [[nodiscard]] std::optional<std::string_view> operator[](FirefoxRecordKey key) const noexcept {
        return _texts[indexOf(key)];
    }

private:
    std::array<std::optional<std::string_view>, namesOfFirefoxRecordKeys.size()> _texts;
};

} // namespace Rellinor
