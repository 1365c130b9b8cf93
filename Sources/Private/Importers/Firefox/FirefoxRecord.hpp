#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Platform/Fault.hpp"
#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// The keys of a login of Firefox.
enum class FirefoxRecordKey : std::uint8_t {
    hostname,
    username,
    password,
};

/// The name of a key.
[[nodiscard]] constexpr std::string_view rawValue(FirefoxRecordKey key) noexcept {
    switch (key) {
        using enum FirefoxRecordKey;
    case hostname:
        return "Hostname";
    case username:
        return "Username";
    case password:
        return "Password";
    }
    fault();
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
    std::array<std::optional<std::string_view>, 3> _texts;
};

} // namespace Rellinor
