#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Private/Text/Letters.hpp"

namespace Rellinor {

/// The month and year in which a card expires; 0 for what is missing.
struct CardDate {
    std::int64_t month = 0;
    std::int64_t year = 0;

    /// Takes what another date has and this one lacks. False, and nothing is taken, if they differ.
    [[nodiscard]] bool complete(const CardDate& other) noexcept {
        const auto fits = [](std::int64_t one, std::int64_t another) {
            return one == 0 || another == 0 || one == another;
        };
        if (!fits(month, other.month) || !fits(year, other.year)) {
            return false;
        }
        month = std::max(month, other.month);
        year = std::max(year, other.year);
        return true;
    }
};

/// A number of nothing but digits, four at most; 0 for nothing; absent for anything else.
[[nodiscard]] inline std::optional<std::int64_t> shortNumber(std::string_view digits) noexcept {
    constexpr std::size_t mostDigits = 4;

    if (digits.size() > mostDigits ||
        !std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '9'; })) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

/// The date that a month and a year are, of which either may be missing; blanks around them are
/// nothing. Years of two digits are those from 2000 on. Absent if either cannot be read.
[[nodiscard]] inline std::optional<CardDate> cardDate(std::string_view month,
                                                      std::string_view year) noexcept {
    constexpr std::int64_t months = 12;
    constexpr std::int64_t century = 100;
    constexpr std::int64_t first = 2000;

    month = withoutBlanksAround(month);
    year = withoutBlanksAround(year);
    const auto monthNumber = shortNumber(month);
    const auto yearNumber = shortNumber(year);
    const bool isMonth =
        monthNumber && *monthNumber <= months && (month.empty() || *monthNumber > 0);
    if (!isMonth || !yearNumber) {
        return std::nullopt;
    }
    const bool isShort = !year.empty() && *yearNumber < century;
    return CardDate{.month = *monthNumber, .year = *yearNumber + (isShort ? first : 0)};
}

/// The date that one text is: `YYYYMM`, or month and year with a slash or hyphen between them, the
/// longer of them the year. Blanks alone are no date, which has nothing.
[[nodiscard]] inline std::optional<CardDate> cardDate(std::string_view text) noexcept {
    constexpr std::size_t lengthOfYear = 4;
    constexpr std::size_t lengthOfBoth = 6;

    text = withoutBlanksAround(text);
    const auto separator = text.find_first_of("/-");
    if (separator == std::string_view::npos) {
        return text.empty() || text.size() == lengthOfBoth
                   ? cardDate(text.substr(std::min(text.size(), lengthOfYear)),
                              text.substr(0, lengthOfYear))
                   : std::nullopt;
    }
    const std::string_view before = withoutBlanksAround(text.substr(0, separator));
    const std::string_view behind = withoutBlanksAround(text.substr(separator + 1));
    if (before.empty() || behind.empty()) {
        return std::nullopt;
    }
    return before.size() == lengthOfYear ? cardDate(behind, before) : cardDate(before, behind);
}

} // namespace Rellinor
