#include "Private/Text/UTF8.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

// Each alone, and behind and before enough ASCII to reach every way of skipping it.
bool isUTF8Everywhere(std::string_view bytes) {
    bool everywhere = isUTF8(bytes);
    for (std::size_t length = 1; length < 20; ++length) {
        std::string text(length, 'a');
        text += bytes;
        everywhere = everywhere && isUTF8(text);
        text += std::string(length, 'z');
        everywhere = everywhere && isUTF8(text);
    }
    return everywhere;
}

bool isUTF8Nowhere(std::string_view bytes) {
    bool somewhere = isUTF8(bytes);
    for (std::size_t length = 1; length < 20; ++length) {
        std::string text(length, 'a');
        text += bytes;
        somewhere = somewhere || isUTF8(text);
        text += std::string(length, 'z');
        somewhere = somewhere || isUTF8(text);
    }
    return !somewhere;
}

TEST(TextTest, acceptsUTF8) {
    for (const std::string_view good :
         {""sv, "abc"sv, "\0"sv, "\x7F"sv, "\u0080"sv, "é"sv, "\u07FF"sv, "\u0800"sv, "\uD7FF"sv,
          "\uE000"sv, "\uFEFF"sv, "\uFFFE"sv, "\uFFFF"sv, "\U00010000"sv, "😀"sv, "\U0010FFFF"sv,
          "漢字かな交じり文"sv}) {
        EXPECT_TRUE(isUTF8Everywhere(good)) << testing::PrintToString(good);
    }
}

TEST(TextTest, rejectsWhatIsNotUTF8) {
    for (const std::string_view bad : {
             "\x80"sv, // a continuation alone
             "\xBF"sv,
             "\xC3"sv, // cut short
             "\xC3\x28"sv,
             "\xE2\x82"sv,
             "\xF0\x9F\x98"sv,
             "\xC0\x80"sv, // overlong
             "\xC1\xBF"sv,
             "\xE0\x80\x80"sv,
             "\xE0\x9F\xBF"sv,
             "\xF0\x80\x80\x80"sv,
             "\xF0\x8F\xBF\xBF"sv,
             "\xED\xA0\x80"sv, // surrogates
             "\xED\xBF\xBF"sv,
             "\xF4\x90\x80\x80"sv, // above U+10FFFF
             "\xF5\x80\x80\x80"sv,
             "\xFE"sv,
             "\xFF"sv,
             "caf\xE9"sv, // Latin-1
         }) {
        EXPECT_TRUE(isUTF8Nowhere(bad)) << testing::PrintToString(bad);
    }
}

std::optional<std::string> decoded(std::string bytes) {
    return decodedText(bytes).transform(
        [](std::span<char> text) { return std::string(text.begin(), text.end()); });
}

TEST(TextTest, dropsOneByteOrderMark) {
    EXPECT_EQ(decoded("\uFEFFa"), "a");
    EXPECT_EQ(decoded("\uFEFF\uFEFFa"), "\uFEFFa");
    EXPECT_EQ(decoded("\uFEFF"), "");
    EXPECT_EQ(decoded("a\uFEFF"), "a\uFEFF");
    EXPECT_EQ(decoded(""), "");
}

TEST(TextTest, doesNotDecodeOtherEncodings) {
    EXPECT_EQ(decoded("caf\xE9"), std::nullopt);
    EXPECT_EQ(decoded("\xFF\xFE"
                      "a"),
              std::nullopt);
}

std::string repaired(std::string_view bytes) {
    std::string text(sizeOfRepairedText(bytes), '?');
    writeRepairedText(bytes, text);
    return text;
}

TEST(TextTest, repairsNothingInUTF8) {
    for (const std::string_view good :
         {""sv, "abc"sv, "\0"sv, "é漢字\U0001F511"sv, "\uFFFF\uFEFF"sv}) {
        EXPECT_EQ(repaired(good), good);
    }
}

TEST(TextTest, replacesEachByteThatBeginsNoCodePoint) {
    EXPECT_EQ(repaired("\x80"), "\uFFFD");
    EXPECT_EQ(repaired("a\xFF\xFE"
                       "b"),
              "a\uFFFD\uFFFDb");
    EXPECT_EQ(repaired("\xC0\x80"), "\uFFFD\uFFFD");                     // overlong
    EXPECT_EQ(repaired("\xE0\x9F\xBF"), "\uFFFD\uFFFD\uFFFD");           // overlong
    EXPECT_EQ(repaired("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");           // a surrogate
    EXPECT_EQ(repaired("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD"); // above U+10FFFF
    EXPECT_EQ(repaired("\xF0\x8F\xBF\xBF"), "\uFFFD\uFFFD\uFFFD\uFFFD"); // overlong
}

TEST(TextTest, replacesTheBeginningOfACodePointByOneCharacter) {
    EXPECT_EQ(repaired("\xC3"), "\uFFFD");
    EXPECT_EQ(repaired("\xC3("), "\uFFFD(");
    EXPECT_EQ(repaired("\xE2\x82"), "\uFFFD");
    EXPECT_EQ(repaired("\xE2\x82z"), "\uFFFDz");
    EXPECT_EQ(repaired("\xF0\x9F\x94"), "\uFFFD");
    EXPECT_EQ(repaired("\xF0\x9F\x94é"), "\uFFFDé");
    EXPECT_EQ(repaired("\xF4\x8F\xBF"), "\uFFFD");
    EXPECT_EQ(repaired("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF"
                       "A"),
              "\uFFFD\uFFFD\uFFFD\uFFFDA");
}

TEST(TextTest, replacesTheBeginningOfTheFirstAndLastCodePointOfEachForm) {
    for (const std::string_view whole :
         {"\u0080", "\u07FF", "\u0800", "\u0FFF", "\u1000", "\uCFFF", "\uD000", "\uD7FF", "\uE000",
          "\uFFFF", "\U00010000", "\U0003FFFF", "\U00040000", "\U000FFFFF", "\U00100000",
          "\U0010FFFF"}) {
        for (std::size_t length = 1; length < whole.size(); ++length) {
            const std::string part(whole.substr(0, length));
            EXPECT_EQ(repaired(part), "\uFFFD") << testing::PrintToString(part);
            EXPECT_EQ(repaired(part + "z"), "\uFFFDz") << testing::PrintToString(part);
        }
    }
}

TEST(TextTest, countsCharactersAsAReaderDoes) {
    EXPECT_EQ(numberOfCharacters(""), 0);
    EXPECT_EQ(numberOfCharacters("abc"), 3);
    EXPECT_EQ(numberOfCharacters("\0a"sv), 2);
    EXPECT_EQ(numberOfCharacters("é"), 1);
    EXPECT_EQ(numberOfCharacters("e\u0301"), 1);
    EXPECT_EQ(numberOfCharacters("\u0301"), 1);
    EXPECT_EQ(numberOfCharacters("a\r\nb"), 3);
    EXPECT_EQ(numberOfCharacters("\r\r\n\n"), 3);
    EXPECT_EQ(numberOfCharacters("漢字"), 2);
    EXPECT_EQ(numberOfCharacters("\U0001F511"), 1);
    EXPECT_EQ(numberOfCharacters("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"), 2);   // two flags
    EXPECT_EQ(numberOfCharacters("\U0001F468\u200D\U0001F469\u200D\U0001F467"), 1); // a family
    EXPECT_EQ(numberOfCharacters("\xFF\xFF"), 2);
}

TEST(TextTest, countsCharactersWhereASCIIMeetsOtherText) {
    for (std::size_t length = 0; length < 20; ++length) {
        const std::string ascii(length, 'a');
        EXPECT_EQ(numberOfCharacters(ascii), length);
        EXPECT_EQ(numberOfCharacters(ascii + "\r\n" + ascii), 2 * length + 1);
        EXPECT_EQ(numberOfCharacters("b" + ascii + "\u0301" + ascii), 2 * length + 1);
        EXPECT_EQ(numberOfCharacters("\u0301" + ascii + "é" + ascii), 2 * length + 2);
        EXPECT_EQ(numberOfCharacters("\U0001F1E9b" + ascii + "\U0001F1EA"), length + 3);
        EXPECT_EQ(numberOfCharacters("\U0001F468\u200Db" + ascii + "\u200D\U0001F469"), length + 3);
        EXPECT_EQ(numberOfCharacters("\u0600b" + ascii), length + 1); // a mark before its letter
    }
    EXPECT_EQ(numberOfCharacters("é\r\né"), 3);
    EXPECT_EQ(numberOfCharacters("\r\u0301"), 2);
    EXPECT_EQ(numberOfCharacters("\r\n\u0301"), 2);
    EXPECT_EQ(numberOfCharacters("a\r"), 2);
    EXPECT_EQ(numberOfCharacters("a\n\r"), 3);
}

TEST(TextTest, countsTheUnitsOfUTF16) {
    EXPECT_EQ(numberOfUTF16Units(""), 0);
    EXPECT_EQ(numberOfUTF16Units("abc\r\n"), 5);
    EXPECT_EQ(numberOfUTF16Units("\0\x7F"sv), 2);
    EXPECT_EQ(numberOfUTF16Units("\u0080\u07FF\u0800\uD7FF\uE000\uFFFF"), 6);
    EXPECT_EQ(numberOfUTF16Units("\U00010000"), 2);
    EXPECT_EQ(numberOfUTF16Units("\U0010FFFF"), 2);
    EXPECT_EQ(numberOfUTF16Units("e\u0301\U0001F511z"), 5);
    EXPECT_EQ(numberOfUTF16Units("\U0001F468\u200D\U0001F469\u200D\U0001F467"), 8);
}

TEST(TextTest, knowsBlankTexts) {
    for (const std::string_view blank :
         {""sv, " "sv, "\t"sv, " \t \t"sv, "\u00A0"sv, "\u1680"sv, "\u2000\u200A"sv, "\u202F"sv,
          "\u205F"sv, "\u3000"sv, " \u3000\t"sv}) {
        EXPECT_TRUE(isBlank(blank)) << testing::PrintToString(blank);
    }
}

TEST(TextTest, takesNothingElseForBlank) {
    for (const std::string_view text :
         {"a"sv, " a"sv, "a "sv, "\0"sv, "\r"sv, "\n"sv, "\v"sv, "\f"sv, "\u0085"sv, "\u200B"sv,
          "\u2028"sv, "\u2029"sv, "\u2060"sv, "\uFEFF"sv, "\u180E"sv, "é"sv, " \u3000é"sv}) {
        EXPECT_FALSE(isBlank(text)) << testing::PrintToString(text);
    }
}

} // namespace

} // namespace Rellinor::Tests
