#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Rellinor::Host {

/// What makes one-time passwords that depend on the time.
struct OneTimePassword {
    std::string secret; ///< Base32 in capitals, without blanks
    std::int64_t period = 30;
    std::int64_t digits = 6;
    std::string algorithm = "sha1"; ///< or "sha256" or "sha512"
    std::string username = {};
    std::string issuer = {};

    /// Reads an "otpauth:" URL or a bare secret. Absent if the text is neither, or says what has no
    /// place here.
    [[nodiscard]] static std::optional<OneTimePassword> of(std::string_view text);

    /// Takes over a part by its name in an "otpauth:" URL. False if there is none of that name, or
    /// the value is none of its values.
    [[nodiscard]] bool set(std::string_view name, std::string_view value);
};

} // namespace Rellinor::Host
