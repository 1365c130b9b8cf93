#include "Private/Text/JSONNumber.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace Rellinor {

namespace {

using Limits = std::numeric_limits<std::int64_t>;

constexpr std::int64_t mostDigits = Limits::digits10 + 1; // of an integer that may fit

/// What follows the "e". One that is very far out is as good as any other: no text has as many
/// digits as it would take to make up for it.
std::int64_t exponentOf(std::string_view text) noexcept {
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    std::int64_t exponent = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (result.ec == std::errc::result_out_of_range) {
        exponent = text.starts_with('-') ? Limits::min() : Limits::max();
    }
    return std::clamp(exponent, Limits::min() / 2, Limits::max() / 2); // so that it can be added to
}

} // namespace

std::optional<std::int64_t> integralValue(std::string_view number) noexcept {
    const bool isNegative = number.starts_with('-');
    number.remove_prefix(isNegative ? 1 : 0);
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    std::int64_t power = e < number.size() ? exponentOf(number.substr(e + 1)) : 0;
    std::string_view digits = number.substr(0, e);

    const std::size_t point = std::min(digits.find('.'), digits.size());
    if (point < digits.size()) {
        power -= static_cast<std::int64_t>(digits.size() - point - 1);
    }
    const std::size_t last = digits.find_last_not_of("0.");
    if (last == std::string_view::npos) {
        return 0;
    }
    const std::string_view dropped = digits.substr(last + 1);
    power += static_cast<std::int64_t>(dropped.size()) - (dropped.contains('.') ? 1 : 0);
    digits = digits.substr(0, last + 1);
    digits.remove_prefix(digits.find_first_not_of("0."));

    const auto count = static_cast<std::int64_t>(digits.size()) - (digits.contains('.') ? 1 : 0);
    if (power < 0 || count + power > mostDigits) {
        return std::nullopt;
    }
    std::uint64_t value = 0; // has room for as many digits, whatever they are
    for (const char digit : digits) {
        if (digit != '.') {
            value = value * 10 + static_cast<std::uint64_t>(digit - '0');
        }
    }
    for (; power > 0; --power) {
        value *= 10;
    }
    const std::uint64_t furthest = static_cast<std::uint64_t>(Limits::max()) + (isNegative ? 1 : 0);
    if (value > furthest) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(isNegative ? 0 - value : value);
}

} // namespace Rellinor
