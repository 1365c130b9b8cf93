#pragma once

namespace Rellinor::Host {

/// An ASCII letter in lower case; any other character as it is.
[[nodiscard]] constexpr char lowerCase(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// An ASCII letter in upper case; any other character as it is.
[[nodiscard]] constexpr char upperCase(char letter) noexcept {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// Whether two characters are the same without regard to case.
[[nodiscard]] constexpr bool sameLetter(char one, char other) noexcept {
    return lowerCase(one) == lowerCase(other);
}

} // namespace Rellinor::Host
