#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Rellinor {

/// The month and year in which a card expires; 0 for what is missing.
struct CardDate {
    std::int64_t month = 0;
    std::int64_t year = 0;

    friend bool operator==(const CardDate&, const CardDate&) noexcept = default;
};

/// A number of nothing but digits, blanks around them aside; absent for anything else, and for more
/// than four digits.
[[nodiscard]] inline std::optional<std::int64_t> shortNumber(std::string_view text) noexcept {
    constexpr std::size_t mostDigits = 4;

    const auto first = text.find_first_not_of(' ');
    const auto last = text.find_last_not_of(' ');
    const std::string_view digits =
        first == std::string_view::npos ? "" : text.substr(first, last + 1 - first);
    if (digits.empty() || digits.size() > mostDigits ||
        !std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '9'; })) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

/// The date that a month and a year are, of which either may be empty. Years of two digits are
/// those from 2000 on. Absent if either cannot be read.
[[nodiscard]] inline std::optional<CardDate> cardDate(std::string_view month,
                                                      std::string_view year) noexcept {
    constexpr std::int64_t months = 12;
    constexpr std::int64_t century = 100;
    constexpr std::int64_t first = 2000;

    const auto monthNumber = month.empty() ? 0 : shortNumber(month);
    const auto yearNumber = year.empty() ? 0 : shortNumber(year);
    const bool isMonth =
        monthNumber && *monthNumber <= months && (month.empty() || *monthNumber > 0);
    if (!isMonth || !yearNumber) {
        return std::nullopt;
    }
    const bool isShort = !year.empty() && *yearNumber < century;
    return CardDate{.month = *monthNumber, .year = *yearNumber + (isShort ? first : 0)};
}

/// The date that one text is: `YYYYMM`, or month and year with a slash or hyphen between them, the
/// longer of them the year.
[[nodiscard]] inline std::optional<CardDate> cardDate(std::string_view text) noexcept {
    constexpr std::size_t lengthOfYear = 4;
    constexpr std::size_t lengthOfBoth = 6;

    const auto separator = text.find_first_of("/-");
    if (separator == std::string_view::npos) {
        return text.size() == lengthOfBoth
                   ? cardDate(text.substr(lengthOfYear), text.substr(0, lengthOfYear))
                   : std::nullopt;
    }
    const std::string_view before = text.substr(0, separator);
    const std::string_view behind = text.substr(separator + 1);
    if (before.empty() || behind.empty()) {
        return std::nullopt;
    }
    return before.size() == lengthOfYear ? cardDate(behind, before) : cardDate(before, behind);
}

} // namespace Rellinor
