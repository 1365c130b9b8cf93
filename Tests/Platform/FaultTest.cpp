#include "Platform/Fault.hpp"

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

TEST(FaultTest, stopsTheProcessWithoutAWord) {
    EXPECT_DEATH(fault(), "^$");
}

TEST(FaultTest, isCheckedInEveryBuild) {
    require(true);
    EXPECT_DEATH(require(false), "^$");
}

} // namespace

} // namespace Rellinor::Tests
