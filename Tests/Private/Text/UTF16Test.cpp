#include "Private/Text/UTF16.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

std::string decoded(std::string_view bytes, std::size_t replaced = 0) {
    DecodedUTF16 text = decodedUTF16(bytes);
    EXPECT_EQ(text.replaced, replaced);
    return std::string(text.view());
}

TEST(UTF16Test, readsBothOrders) {
    EXPECT_EQ(decoded("\xFF\xFE"
                      "a\0\xE9\0\xAC\x20\x3D\xD8\x11\xDD"sv),
              "a\u00E9\u20AC\U0001F511");
    EXPECT_EQ(decoded("\xFE\xFF\0a\0\xE9\x20\xAC\xD8\x3D\xDD\x11"sv), "a\u00E9\u20AC\U0001F511");
    EXPECT_EQ(decoded("\xFF\xFE"sv), "");
}

TEST(UTF16Test, keepsNULsAndTheMarkOfTheMiddle) {
    EXPECT_EQ(decoded("\xFF\xFE\0\0\xFF\xFE"sv), "\0\uFEFF"sv);
}

TEST(UTF16Test, replacesWhatIsNoCharacter) {
    EXPECT_EQ(decoded("\xFF\xFE\x3D\xD8x\0"sv, 1), "\uFFFDx"); // a high surrogate alone
    EXPECT_EQ(decoded("\xFF\xFE\x11\xDDx\0"sv, 1), "\uFFFDx"); // a low one
    EXPECT_EQ(decoded("\xFF\xFE\x3D\xD8\x3D\xD8\x11\xDD"sv, 1), "\uFFFD\U0001F511");
    EXPECT_EQ(decoded("\xFF\xFEx\0\x3D\xD8"sv, 1), "x\uFFFD"); // the end within a pair
    EXPECT_EQ(decoded("\xFF\xFEx\0y"sv, 1), "x\uFFFD");        // within a unit
}

} // namespace

} // namespace Rellinor::Tests
