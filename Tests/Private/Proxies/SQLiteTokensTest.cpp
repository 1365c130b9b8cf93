#include "Private/Proxies/SQLiteTokens.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

/// The tokens of a text, each with a letter for its type.
std::vector<std::string> tokens(std::string sql) {
    constexpr std::string_view letters = "wnts";

    std::vector<std::string> all;
    for (const SQLiteToken& token : sqliteTokens(sql)) {
        all.push_back(std::string(1, letters[static_cast<std::size_t>(token.type)]) + ' ' +
                      std::string(token.content));
    }
    return all;
}

using Tokens = std::vector<std::string>;

TEST(SQLiteTokensTest, areWordsInLowerCaseAndSigns) {
    EXPECT_EQ(tokens("SELECT t.A_1$,*FROM ÄÖ"),
              (Tokens{"w select", "w t", "s .", "w a_1$", "s ,", "s *", "w from", "w ÄÖ"}));
    EXPECT_EQ(tokens(""), Tokens{});
}

TEST(SQLiteTokensTest, areNamesInAnyQuotes) {
    EXPECT_EQ(tokens(R"("A b" [C"d] `e f` 'G')"), (Tokens{"n a b", "n c\"d", "n e f", "t g"}));
    EXPECT_EQ(tokens(R"("a""b" 'c''d' `e``f` [g]] "")"),
              (Tokens{"n a\"b", "t c'd", "n e`f", "n g", "s ]", "n "}));
    EXPECT_EQ(tokens("'a\"b' \"a'b\""), (Tokens{"t a\"b", "n a'b"}));
}

TEST(SQLiteTokensTest, endWithATextThatHasNoEnd) {
    EXPECT_EQ(tokens("a 'b"), (Tokens{"w a", "t b"}));
    EXPECT_EQ(tokens("a [b''"), (Tokens{"w a", "n b''"}));
    EXPECT_EQ(tokens("a '"), (Tokens{"w a", "t "}));
    EXPECT_EQ(tokens("a /* b"), (Tokens{"w a"}));
    EXPECT_EQ(tokens("a -- b"), (Tokens{"w a"}));
}

TEST(SQLiteTokensTest, haveNoBlanksAndCommentsBetweenThem) {
    EXPECT_EQ(tokens(" a\t\n\v\f\rb/**/c/*'*/d--'\ne- -f/*/*/g\uFEFF \uFEFFh"),
              (Tokens{"w a", "w b", "w c", "w d", "w e", "s -", "s -", "w f", "w g\uFEFF", "w h"}));
    EXPECT_EQ(tokens("'/*' '--'"), (Tokens{"t /*", "t --"}));
}

} // namespace

} // namespace Rellinor::Tests
