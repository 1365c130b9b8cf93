#include "Host/OneTimePassword.hpp"

#include <algorithm>
#include <array>
#include <charconv>

#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

/// A text in small letters.
std::string inSmallLetters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), lowerCase);
    return small;
}

std::optional<std::int64_t> numberIn(std::string_view text) noexcept {
    constexpr std::int64_t most = 86'400;

    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return isNumber && number > 0 && number <= most ? std::optional(number) : std::nullopt;
}

/// A text of a URL without its percent signs; absent if one of them escapes nothing.
std::optional<std::string> decoded(std::string_view text) {
    constexpr int base = 16;

    std::string plain;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text[place] != '%') {
            plain += text[place];
            continue;
        }
        unsigned byte = 0;
        const std::string_view digits = text.substr(place + 1, 2);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), byte, base);
        if (digits.size() < 2 || read.ptr != digits.data() + digits.size()) {
            return std::nullopt;
        }
        plain += static_cast<char>(byte);
        place += 2;
    }
    return plain;
}

/// Takes what stands before a separator off a text.
std::string_view taken(std::string_view& text, char separator) noexcept {
    const std::size_t end = text.find(separator);
    const std::string_view piece = text.substr(0, end);
    text = end == std::string_view::npos ? "" : text.substr(end + 1);
    return piece;
}

bool setFromURL(OneTimePassword& password, std::string_view rest) {
    const auto label = decoded(taken(rest, '?'));
    if (!label) {
        return false;
    }
    password.username = label->substr(label->find(':') + 1);
    password.issuer = label->contains(':') ? label->substr(0, label->find(':')) : "";
    while (!rest.empty()) {
        std::string_view value = taken(rest, '&');
        const std::string_view name = taken(value, '=');
        const auto plain = decoded(value);
        const bool isSetting = name == "lock"; // of Dashlane
        if (!plain || (!isSetting && !password.set(name, *plain))) {
            return false;
        }
    }
    return !password.secret.empty();
}

} // namespace

bool OneTimePassword::set(std::string_view name, std::string_view value) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ234567=";
    constexpr std::array<std::string_view, 3> algorithms = {"sha1", "sha256", "sha512"};

    if (name == "secret") {
        std::string plain;
        for (const char letter : value) {
            plain += letter == ' ' ? "" : std::string(1, upperCase(letter));
        }
        const bool isSecret =
            !plain.empty() && plain.find_first_not_of(letters) == std::string::npos;
        secret = isSecret ? plain : secret;
        return isSecret;
    }
    if (name == "period" || name == "digits") {
        const auto number = numberIn(value);
        std::int64_t& target = name == "period" ? period : digits;
        target = number.value_or(target);
        return number.has_value();
    }
    if (name == "algorithm") {
        const std::string small = inSmallLetters(value);
        const bool isKnown = std::ranges::find(algorithms, small) != algorithms.end();
        algorithm = isKnown ? small : algorithm;
        return isKnown;
    }
    if (name == "username" || name == "issuer") {
        (name == "username" ? username : issuer) = value;
        return true;
    }
    return false;
}

std::optional<OneTimePassword> OneTimePassword::of(std::string_view text) {
    constexpr std::string_view scheme = "otpauth://totp/";

    OneTimePassword password;
    const bool isURL = inSmallLetters(text.substr(0, scheme.size())) == scheme;
    const bool isRead =
        isURL ? setFromURL(password, text.substr(scheme.size())) : password.set("secret", text);
    return isRead ? std::optional(std::move(password)) : std::nullopt;
}

} // namespace Rellinor::Host
