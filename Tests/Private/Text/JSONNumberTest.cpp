#include "Private/Text/JSONNumber.hpp"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(JSONNumberTest, hasTheValueOfAnIntegerHoweverItIsSpelt) {
    const std::vector<std::pair<std::string_view, std::int64_t>> vectors = {
        {"0", 0},
        {"-0", 0},
        {"0.0", 0},
        {"-0.000e-5", 0},
        {"0e400", 0},
        {"7", 7},
        {"-7", -7},
        {"1.0", 1},
        {"1.000", 1},
        {"1e3", 1000},
        {"1E+3", 1000},
        {"1e0", 1},
        {"1e-0", 1},
        {"10e-1", 1},
        {"-5.0", -5},
        {"1.5e1", 15},
        {"12.50e2", 1250},
        {"0.001e3", 1},
        {"0.00120e5", 120},
        {"100", 100},
        {"100e-2", 1},
        {"123000e-3", 123},
        {"1200.00e-2", 12},
        {"9223372036854775807", largest},
        {"9223372036854775807.0", largest},
        {"922337203685477580.7e1", largest},
        {"9.223372036854775807e18", largest},
        {"9223372036854775807000e-3", largest},
        {"-9223372036854775808", smallest},
        {"-9223372036854775808.0", smallest},
        {"-0.9223372036854775808e19", smallest},
        {"9007199254740993.0", 9007199254740993}, // between two numbers that a double can be
        {"1e18", 1000000000000000000},
    };
    for (const auto& [number, value] : vectors) {
        EXPECT_EQ(integralValue(number), value) << number;
    }
}

TEST(JSONNumberTest, isAbsentForAFraction) {
    for (const std::string_view number :
         {"1.5", "-1.5", "0.1", "1e-1", "1.05e1", "15e-1", "100e-3", "0.0001", "1e-400",
          "9223372036854775806.5", "1e-99999999999999999999"}) {
        EXPECT_EQ(integralValue(number), std::nullopt) << number;
    }
}

TEST(JSONNumberTest, isAbsentForWhatDoesNotFit) {
    for (const std::string_view number :
         {"9223372036854775808", "9223372036854775808.0", "-9223372036854775809",
          "-9223372036854775808.1", "1e19", "-1e19", "1e20", "9999999999999999999",
          "18446744073709551615", "18446744073709551616", "27670116110564327424", "1e400",
          "100000000000000000000", "1e99999999999999999999"}) {
        EXPECT_EQ(integralValue(number), std::nullopt) << number;
    }
}

TEST(JSONNumberTest, hasNoValueIfTheExponentIsNearTheFurthest) {
    for (const std::string_view exponent :
         {"9223372036854775807", "9223372036854775808", "-9223372036854775807",
          "-9223372036854775808", "-9223372036854775809", "99999999999999999999999",
          "4611686018427387903", "-4611686018427387904"}) {
        for (const std::string_view digits : {"1", "-1", "10", "0.1", "1.25", "100.001"}) {
            const std::string number = std::string(digits) + "e" + std::string(exponent);
            EXPECT_EQ(integralValue(number), std::nullopt) << number;
        }
        EXPECT_EQ(integralValue("0.00e" + std::string(exponent)), 0) << exponent;
    }
}

TEST(JSONNumberTest, looksAtNothingBehindTheNumber) {
    EXPECT_EQ(integralValue(std::string_view("1234").substr(0, 2)), 12);
    EXPECT_EQ(integralValue(std::string_view("1e15").substr(0, 3)), 10);
    EXPECT_EQ(integralValue(std::string_view("10e-12").substr(0, 5)), 1);
}

TEST(JSONNumberTest, looksAtAllDigitsOfALongNumber) {
    const std::string zeros(100'000, '0');
    EXPECT_EQ(integralValue("1" + zeros + "e-100000"), 1);
    EXPECT_EQ(integralValue("1" + zeros + "e-99999"), 10);
    EXPECT_EQ(integralValue("1" + zeros), std::nullopt);
    EXPECT_EQ(integralValue("0." + zeros + "1e100001"), 1);
    EXPECT_EQ(integralValue("1." + zeros), 1);
    EXPECT_EQ(integralValue("1." + zeros + "1"), std::nullopt);
}

} // namespace

} // namespace Rellinor::Tests
