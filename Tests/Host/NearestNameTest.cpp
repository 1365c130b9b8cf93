#include "Host/NearestName.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

std::string nearest(std::string_view word) {
    static constexpr std::string_view names[] = {"chrome",    "lastPass", "dashlane", "onePassword",
                                                 "keePassXC", "keePass",  "tirel"};
    return std::string(nearestName(word, names));
}

TEST(NearestNameTest, forgivesALetterPutInLeftOutChangedOrSwapped) {
    EXPECT_EQ(nearest("chroome"), "chrome");
    EXPECT_EQ(nearest("chome"), "chrome");
    EXPECT_EQ(nearest("chrime"), "chrome");
    EXPECT_EQ(nearest("chorme"), "chrome");
    EXPECT_EQ(nearest("tirle"), "tirel");
}

TEST(NearestNameTest, doesNotRegardCase) {
    EXPECT_EQ(nearest("LASTPAS"), "lastPass");
}

TEST(NearestNameTest, takesTheNearestOfSeveral) {
    EXPECT_EQ(nearest("keepas"), "keePass");
    EXPECT_EQ(nearest("keepasxc"), "keePassXC");
    EXPECT_EQ(nearest("keepaxs"), "keePass");
}

TEST(NearestNameTest, takesAWordForTheBeginningOfAName) {
    EXPECT_EQ(nearest("one"), "onePassword");
    EXPECT_EQ(nearest("DASH"), "dashlane");
    EXPECT_EQ(nearest("d"), "");
}

TEST(NearestNameTest, findsNothingNearAStrangeWord) {
    EXPECT_EQ(nearest(""), "");
    EXPECT_EQ(nearest("xml"), "");
    EXPECT_EQ(nearest("spreadsheet"), "");
    EXPECT_EQ(nearest(std::string(100'000, 'c')), "");
}

} // namespace

} // namespace Rellinor::Host
