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

TEST(DisplayTextTest, keepsTheFlagOfACountryWithinAnother) {
    const std::string scotland = "\U0001F3F4\U000E0067\U000E0062\U000E0073\U000E0063\U000E0074"
                                 "\U000E007F";
    EXPECT_EQ(displayText(scotland), scotland);
    EXPECT_EQ(displayWidth(scotland), 2);
    EXPECT_EQ(displayText("a\U000E0067"), "a\uFFFD"); // elsewhere nobody would see it
    EXPECT_EQ(displayText("\U0001F3F4a\U000E0067"), "\U0001F3F4a\uFFFD");
}

TEST(DisplayTextTest, measuresAnEmojiAsOneCharacter) {
    EXPECT_EQ(displayWidth("📷"), 2);
    EXPECT_EQ(displayWidth("👨‍👩‍👧‍👦"), 2); // a family, joined
    EXPECT_EQ(displayWidth("🇩🇪"), 2);                        // a flag of two letters
    EXPECT_EQ(displayWidth("🇩🇪🇫🇷"), 4);                      // two flags
    EXPECT_EQ(displayWidth("👍🏽"), 2);                      // with the color of its skin
    EXPECT_EQ(displayWidth("1\uFE0F\u20E3"), 2);             // a keycap
    EXPECT_EQ(displayWidth("\u2764"), 1);                    // a heart as a letter
    EXPECT_EQ(displayWidth("\u2764\uFE0F"), 2);              // and as an emoji
    EXPECT_EQ(displayWidth("\u2764\uFE0F\u200D🔥"), 2);      // on fire
}

TEST(DisplayTextTest, asksNoEmojiOfALetter) {
    EXPECT_EQ(displayWidth("a\uFE0F"), 1);
}

TEST(DisplayTextTest, measuresMarksWithTheirLetter) {
    EXPECT_EQ(displayWidth("e\u0301\u0302\u0303x"), 2);
    EXPECT_EQ(displayWidth("\u1100\u1161\u11A8"), 2); // one syllable of Hangul
    EXPECT_EQ(displayWidth("\u0E01\u0E33"), 2);       // one of Thai, of two columns
}

TEST(DisplayTextTest, shortensToAWidth) {
    EXPECT_EQ(shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(shortened("abcdef", 5), "abcd…");
    EXPECT_EQ(shortened("漢字漢字", 8), "漢字漢字");
    EXPECT_EQ(shortened("漢字漢字", 7), "漢字漢…");
    EXPECT_EQ(shortened("漢字漢字", 6), "漢字…");
    EXPECT_EQ(shortened("abcdef", 1), "…");
    EXPECT_EQ(shortened("", 1), "");
}

TEST(DisplayTextTest, shortensWhatIsDisplayed) {
    EXPECT_EQ(shortened("a\nb", 3), "a␊b");
    EXPECT_EQ(shortened("a\nb\xFF", 3), "a␊…");
}

TEST(DisplayTextTest, cutsNoClusterApart) {
    EXPECT_EQ(shortened("a👨‍👩‍👧b", 4), "a👨‍👩‍👧b");
    EXPECT_EQ(shortened("a👨‍👩‍👧bc", 4), "a👨‍👩‍👧…");
    EXPECT_EQ(shortened("a👨‍👩‍👧bc", 3), "a…");
    EXPECT_EQ(shortened("🇩🇪🇫🇷", 3), "🇩🇪…");
    EXPECT_EQ(shortened("a🇩🇪", 2), "a…"); // not the first letter of the flag
    EXPECT_EQ(shortened("e\u0301e\u0301e\u0301", 2), "e\u0301…");
    EXPECT_EQ(shortened("a1\uFE0F\u20E3", 2), "a…");
}

TEST(DisplayTextTest, shortensWhatIsLongButNotWide) {
    std::string marks;
    for (int i = 0; i < 1000; ++i) {
        marks += "\u0301";
    }
    EXPECT_EQ(shortened("e" + marks, 36), "e" + marks); // 2,001 bytes of 36 * 64
    EXPECT_EQ(shortened("e" + marks, 31), "…");         // of 31 * 64
    EXPECT_EQ(shortened("ab" + marks, 31), "a…");
}

} // namespace

} // namespace Rellinor::Host
