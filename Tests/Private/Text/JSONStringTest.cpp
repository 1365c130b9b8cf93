#include "Private/Text/JSONString.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

std::string decoded(std::string_view written) {
    std::string target(written.size(), '?');
    target.resize(JSONString(written, true).decoded(target).size());
    return target;
}

TEST(JSONStringTest, decodesEveryEscape) {
    EXPECT_EQ(decoded(R"(\"\\\/\b\f\n\r\t)"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(decoded(R"(\u0000\u0041\u007f\u0080\u07FF\u0800\uFFFF)"),
              "\0A\x7F\u0080\u07FF\u0800\uFFFF"sv);
    EXPECT_EQ(decoded(R"(\uD7FF\uE000)"), "\uD7FF\uE000");
    EXPECT_EQ(decoded(R"(\uD800\uDC00\ud83d\udd11\uDBFF\uDFFF)"), "\U00010000\U0001F511\U0010FFFF");
    EXPECT_EQ(decoded(R"(\uD7FF\uE000)"), "\uD7FF\uE000");
}

TEST(JSONStringTest, keepsWhatIsWrittenAsItIs) {
    EXPECT_EQ(decoded(""), "");
    EXPECT_EQ(decoded("a\u00E9\U0001F511\x7F"), "a\u00E9\U0001F511\x7F");
    EXPECT_EQ(decoded(R"(a\nb\nc)"), "a\nb\nc");
}

TEST(JSONStringTest, decodesInPlace) {
    std::string text = R"(\u00e9a\uD83D\uDD11\\b)";
    EXPECT_EQ(JSONString(text, true).decoded(text), "\u00E9a\U0001F511\\b");
}

TEST(JSONStringTest, hasTheLengthOfAnEscape) {
    const std::vector<std::pair<std::string_view, std::size_t>> escapes = {
        {R"(\n)", 2},      {R"(\nnn)", 2},          {R"(\u00e9)", 6},
        {R"(\u00e90)", 6}, {R"(\uD83D\uDD11)", 12}, {R"(\uD83D\uDD11\uDD11)", 12},
    };
    for (const auto& [text, length] : escapes) {
        EXPECT_EQ(lengthOfJSONEscape(text), length) << text;
    }
}

TEST(JSONStringTest, knowsNoOtherEscapes) {
    for (const std::string_view text : {R"(\)",           R"(\x)",           R"(\N)",
                                        R"(\0)",          R"(\')",           R"(\u)",
                                        R"(\u00)",        R"(\u00e)",        R"(\u00g9)",
                                        R"(\u 0e9)",      R"(\u+0e9)",       R"(\u-0e9)",
                                        R"(\u0x41)",      R"(\U00e9)",       R"(\uD800)",
                                        R"(\uDFFF)",      R"(\uD83D)",       R"(\uD83Dx)",
                                        R"(\uD83D\n)",    R"(\uD83D\uD83D)", R"(\uD83D\u0041)",
                                        R"(\uDD11)",      R"(\uDD11\uD83D)", R"(\uDD11\uDD11)",
                                        R"(\uD83D\uDD1)", R"(\uD83D\nDD11)"}) {
        EXPECT_EQ(lengthOfJSONEscape(text), 0U) << text;
    }
}

} // namespace

} // namespace Rellinor::Tests
