#include "Host/Inspection/JSONInteger.hpp"

#include <string>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

TEST(JSONIntegerTest, knowsIntegersHoweverTheyAreSpelt) {
    for (const char* const number :
         {"0", "-0", "7", "1.0", "-5.00", "1e3", "10e-1", "12300E-2", "2.50e1", "0.000001e6",
          "0e999", "0.0e-3", "9007199254740993.0", "1e18"}) {
        EXPECT_TRUE(isInteger(number)) << number;
    }
    EXPECT_TRUE(isInteger("1." + std::string(300, '0')));
    EXPECT_TRUE(isInteger("1" + std::string(40, '0') + "e-40"));
    EXPECT_TRUE(isInteger("0." + std::string(40, '0') + "7e41"));
}

TEST(JSONIntegerTest, knowsFractions) {
    for (const char* const number : {"1.5", "-0.5", "1e-1", "12345e-4", "0.5e0", "1e-2000000000"}) {
        EXPECT_FALSE(isInteger(number)) << number;
    }
    EXPECT_FALSE(isInteger("1." + std::string(300, '0') + "1"));
}

TEST(JSONIntegerTest, knowsTheLimits) {
    EXPECT_TRUE(isInteger("9223372036854775807"));
    EXPECT_TRUE(isInteger("-9223372036854775808"));
    EXPECT_TRUE(isInteger("922337203685477580.7e1"));
    EXPECT_FALSE(isInteger("9223372036854775808"));
    EXPECT_FALSE(isInteger("-9223372036854775809"));
    EXPECT_FALSE(isInteger("9223372036854775807.5"));
    EXPECT_FALSE(isInteger("1e19"));
    EXPECT_FALSE(isInteger("1e2000000000"));
}

} // namespace

} // namespace Rellinor::Host
