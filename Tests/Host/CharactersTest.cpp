#include "Host/Characters.hpp"

#include <cstddef>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

TEST(CharactersTest, findsTheFirstByteThatIsNotUTF8) {
    EXPECT_EQ(firstBrokenByte(""), std::nullopt);
    EXPECT_EQ(firstBrokenByte("aü漢🔑"), std::nullopt);
    EXPECT_EQ(firstBrokenByte("aü\xFF"
                              "b\xFF"),
              3);
    EXPECT_EQ(firstBrokenByte("a\xC3"), 1);        // ends within a character
    EXPECT_EQ(firstBrokenByte("\xED\xA0\x80"), 0); // a surrogate
    EXPECT_EQ(firstBrokenByte("\xC0\xAF"), 0);     // overlong
}

TEST(CharactersTest, findsTheFirstByteThatIsNotUTF8BehindAnyMuchText) {
    for (std::size_t before = 0; before < 40; ++before) {
        for (std::size_t behind = 0; behind < 20; ++behind) {
            const std::string text(before, 'a');
            const std::string rest(behind, 'b');
            EXPECT_EQ(firstBrokenByte(text + "ü" + rest), std::nullopt);
            EXPECT_EQ(firstBrokenByte(text + "\xFF" + rest), before);
            EXPECT_EQ(firstBrokenByte(text + "ü\xFF" + rest), before + 2);
        }
    }
}

TEST(CharactersTest, countsCharactersAsAReaderDoes) {
    EXPECT_EQ(numberOfCharacters(""), 0);
    EXPECT_EQ(numberOfCharacters("abc"), 3);
    EXPECT_EQ(numberOfCharacters("e\u0301x"), 2);
    EXPECT_EQ(numberOfCharacters("\r\n\n"), 2);
    EXPECT_EQ(numberOfCharacters("🇩🇪🇫🇷"), 2);
    EXPECT_EQ(numberOfCharacters("👩\u200D👧a"), 2);
}

TEST(CharactersTest, countsUTF16Units) {
    EXPECT_EQ(numberOfUTF16Units(""), 0);
    EXPECT_EQ(numberOfUTF16Units("aü漢"), 3);
    EXPECT_EQ(numberOfUTF16Units("🔑"), 2);
}

} // namespace

} // namespace Rellinor::Host
