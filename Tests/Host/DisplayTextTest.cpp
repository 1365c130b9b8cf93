#include "Host/DisplayText.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

TEST(DisplayTextTest, keepsWhatCanBeSeen) {
    EXPECT_EQ(displayText("Grüße, 漢字 👨‍👩‍👧 e\u0301"),
              "Grüße, 漢字 👨‍👩‍👧 e\u0301");
}

TEST(DisplayTextTest, makesControlCharactersVisible) {
    EXPECT_EQ(displayText("a\nb\tc\x1B[31m\x7F"), "a␊b␉c␛[31m␡");
    EXPECT_EQ(displayText(std::string_view("\0\x1F", 2)), "␀␟");
}

TEST(DisplayTextTest, replacesWhatCouldMisleadATerminal) {
    EXPECT_EQ(displayText("\u0085\u009B31m"), "\uFFFD\uFFFD31m"); // C1 controls
    EXPECT_EQ(displayText("a\u202Eb\u2066c"), "a\uFFFDb\uFFFDc"); // directions of writing
    EXPECT_EQ(displayText("a\u2028b\u2029"), "a\uFFFDb\uFFFD");   // line separators
}

TEST(DisplayTextTest, replacesWhatIsNotUTF8) {
    EXPECT_EQ(displayText("caf\xE9!"), "caf\uFFFD!");
    EXPECT_EQ(displayText("\xF0\x9F\x98"), "\uFFFD\uFFFD\uFFFD");
}

TEST(DisplayTextTest, measuresColumnsOfATerminal) {
    EXPECT_EQ(displayWidth(""), 0);
    EXPECT_EQ(displayWidth("abc"), 3);
    EXPECT_EQ(displayWidth("é"), 1);
    EXPECT_EQ(displayWidth("e\u0301"), 1);
    EXPECT_EQ(displayWidth("漢字"), 4);
}

TEST(DisplayTextTest, shortensToAWidth) {
    EXPECT_EQ(shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(shortened("abcdef", 5), "abcd…");
    EXPECT_EQ(shortened("漢字漢字", 6), "漢字…");
    EXPECT_EQ(shortened("abcdef", 1), "…");
    EXPECT_EQ(shortened("", 1), "");
}

} // namespace

} // namespace Rellinor::Host
