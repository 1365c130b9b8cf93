#pragma once

#include <algorithm>
#include <string_view>

namespace Rellinor {

/// An ASCII letter in lower case; any other character as it is.
[[nodiscard]] constexpr char lowerCase(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Whether two texts are the same without regard to the case of ASCII letters.
[[nodiscard]] constexpr bool sameIgnoringCase(std::string_view one,
                                              std::string_view other) noexcept {
    return one.size() == other.size() && std::ranges::equal(one, other, {}, lowerCase, lowerCase);
}

/// Whether a name is longer than an extension and ends with it, in any case.
[[nodiscard]] constexpr bool hasExtension(std::string_view name,
                                          std::string_view extension) noexcept {
    return name.size() > extension.size() &&
           sameIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

/// A text without the spaces and tabs at its ends.
[[nodiscard]] constexpr std::string_view withoutBlanksAround(std::string_view text) noexcept {
    constexpr std::string_view blanks = " \t";
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(blanks)));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

} // namespace Rellinor
