#include <string>

#include <Rellinor/NSError.hpp>
#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

TEST(NSErrorTest, hasADomainACodeAndNoUserInfo) {
    const NSError error("Rellinor.JSONError", 1);
    EXPECT_EQ(error.domain(), "Rellinor.JSONError");
    EXPECT_EQ(error.code(), 1);
    EXPECT_TRUE(error.userInfo().empty());
}

TEST(NSErrorTest, describesItselfByDomainAndCode) {
    EXPECT_EQ(NSError("Rellinor.JSONError", 0).localizedDescription(),
              "The operation couldn\u2019t be completed. (Rellinor.JSONError error 0.)");
}

TEST(NSErrorTest, comparesByDomainAndCode) {
    EXPECT_EQ(NSError("Rellinor.JSONError", 1), NSError(std::string_view("Rellinor.JSONError"), 1));
    EXPECT_NE(NSError("Rellinor.JSONError", 1), NSError("Rellinor.JSONError", 0));
    EXPECT_NE(NSError("Rellinor.JSONError", 1), NSError("Rellinor.TextError", 1));
}

} // namespace

} // namespace Rellinor::Tests
