#include "Host/Inspection/JSONInteger.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Rellinor::Host {

bool isInteger(std::string_view number) {
    constexpr std::string_view furthest = "9223372036854775807";
    constexpr std::string_view furthestBelowZero = "9223372036854775808";

    const bool isNegative = number.starts_with('-');
    number.remove_prefix(isNegative ? 1 : 0);
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    std::string_view exponent = number.substr(std::min(e + 1, number.size()));
    exponent.remove_prefix(exponent.starts_with('+') ? 1 : 0);
    std::int32_t power = 0; // the parser takes no other
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);

    // The value is the digits, times ten to the power of the zeros.
    std::string digits(number.substr(0, e));
    std::int64_t zeros = power;
    if (const std::size_t point = digits.find('.'); point != std::string::npos) {
        zeros -= static_cast<std::int64_t>(digits.size() - point - 1);
        digits.erase(point, 1);
    }
    const std::size_t behind = digits.find_last_not_of('0') + 1;
    zeros += static_cast<std::int64_t>(digits.size() - behind);
    digits.erase(behind);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));

    const auto most = static_cast<std::int64_t>(furthest.size());
    const auto count = static_cast<std::int64_t>(digits.size());
    if (digits.empty()) {
        return true;
    }
    if (zeros < 0 || count + zeros > most) {
        return false;
    }
    digits.append(static_cast<std::size_t>(zeros), '0');
    return digits.size() < furthest.size() || digits <= (isNegative ? furthestBelowZero : furthest);
}

} // namespace Rellinor::Host
