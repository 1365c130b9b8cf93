// The dialect: from a text to rows of cells.

#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/CSV.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

// Cells

TEST(CSVDialectTest, cutsALineAtItsCommas) {
    EXPECT_EQ(rows("a,b,c\n"), (Rows{{"a", "b", "c"}}));
}

TEST(CSVDialectTest, keepsEmptyCells) {
    EXPECT_EQ(rows(",\n"), (Rows{{"", ""}}));
    EXPECT_EQ(rows(",,a,\n"), (Rows{{"", "", "a", ""}}));
}

TEST(CSVDialectTest, takesTheQuotesOffAQuotedCell) {
    EXPECT_EQ(rows("a,\"b\",c\n"), (Rows{{"a", "b", "c"}}));
    EXPECT_EQ(rows("\"\",\"a\"\n"), (Rows{{"", "a"}}));
}

TEST(CSVDialectTest, takesOffOnePairOfQuotesOnly) {
    EXPECT_EQ(rows("\"\"a\"\"\n"), (Rows{{"\"a\""}}));
}

TEST(CSVDialectTest, keepsTheQuotesOfACellThatDoesNotBeginWithOne) {
    EXPECT_EQ(rows("a, \"b\",c\n"), (Rows{{"a", " \"b\"", "c"}}));
    EXPECT_EQ(rows("a,\"b\" ,c\n"), (Rows{{"a", "\"b\" ", "c"}}));
    EXPECT_EQ(rows("x\"b\"\n"), (Rows{{"x\"b\""}}));
}

TEST(CSVDialectTest, doubledQuotesStayDoubled) {
    EXPECT_EQ(rows("\"ab\"\"c\"\n"), (Rows{{"ab\"\"c"}}));
    EXPECT_EQ(rows("\"a \"\"b\"\", c\"\n"), (Rows{{"a \"\"b\"\", c"}}));
}

TEST(CSVDialectTest, makesADoubledQuoteOfABackslashAndAQuote) {
    EXPECT_EQ(rows("\"a\\\"b\"\n"), (Rows{{"a\"\"b"}}));
    EXPECT_EQ(rows("a\\\"b\n"), (Rows{{"a\"\"b"}}));
    EXPECT_EQ(rows("\\\\\"\n"), (Rows{{"\\\"\""}}));
    EXPECT_EQ(rows("\\\"\\\"\n"), (Rows{{"\"\""}}));
    EXPECT_EQ(rows("\\a\\\n"), (Rows{{"\\a\\"}}));
}

TEST(CSVDialectTest, aBackslashEscapesEvenTheQuoteThatShouldCloseACell) {
    EXPECT_EQ(rows("\"C:\\\",b\nc\n"), (Rows{{"\"C:\"\",b\nc\n"}}));
}

TEST(CSVDialectTest, keepsACommaAndALineBreakInAQuotedCell) {
    EXPECT_EQ(rows("a,\"b,c\nd\",e\n"), (Rows{{"a", "b,c\nd", "e"}}));
}

TEST(CSVDialectTest, opensAQuotedSectionAnywhereInACell) {
    EXPECT_EQ(rows("a\"b,c\"d,e\n"), (Rows{{"a\"b,c\"d", "e"}}));
    EXPECT_EQ(rows("5\" disk,b\n6\" disk,c\n"), (Rows{{"5\" disk,b\n6\" disk", "c"}}));
}

TEST(CSVDialectTest, trimsNothing) {
    EXPECT_EQ(rows(" a ,\tb\t,\u00A0c\u3000\n"), (Rows{{" a ", "\tb\t", "\u00A0c\u3000"}}));
}

TEST(CSVDialectTest, separatesByCommaOnly) {
    EXPECT_EQ(rows("a;b\tc|d\n"), (Rows{{"a;b\tc|d"}}));
}

TEST(CSVDialectTest, keepsEveryCharacter) {
    const std::string odd("\0\x01\x7F\u0301\u200B\uFFFF😀", 15);
    EXPECT_EQ(rows("a," + odd + "\n"), (Rows{{"a", odd}}));
}

TEST(CSVDialectTest, takesACombiningMarkBehindAQuoteForACharacterOfItsOwn) {
    EXPECT_EQ(rows("\"\u0301a,b\"\n"), (Rows{{"\u0301a,b"}}));
}

TEST(CSVDialectTest, endsAnOpenQuotedSectionWithTheText) {
    EXPECT_EQ(rows("a,\"b,c\nd"), (Rows{{"a", "\"b,c\nd"}}));
    EXPECT_EQ(rows("a,\"b\n\n"), (Rows{{"a", "\"b\n\n"}}));
}

TEST(CSVDialectTest, makesASingleQuoteAnEmptyCell) {
    EXPECT_EQ(rows("a,\""), (Rows{{"a", ""}}));
    EXPECT_EQ(rows("\""), (Rows{{""}}));
    EXPECT_EQ(rows("\"\n"), (Rows{{"\"\n"}}));
}

// Lines

TEST(CSVDialectTest, needsNoLineEndAtTheEnd) {
    EXPECT_EQ(rows("a,b\nc,d"), (Rows{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(rows("a,"), (Rows{{"a", ""}}));
}

TEST(CSVDialectTest, keepsRowsOfUnequalLength) {
    EXPECT_EQ(rows("a\nb,c\nd,e,f\n"), (Rows{{"a"}, {"b", "c"}, {"d", "e", "f"}}));
}

TEST(CSVDialectTest, readsACRLFFileLikeAnLFFile) {
    EXPECT_EQ(rows("a,b\r\n\"c\r\nd\",e\r\n"), (Rows{{"a", "b"}, {"c\nd", "e"}}));
}

TEST(CSVDialectTest, takesACROnlyFileForOneLine) {
    EXPECT_EQ(rows("a,b\rc,d\r"), (Rows{{"a", "b\rc", "d\r"}}));
}

TEST(CSVDialectTest, takesOnlyTheLastOfSeveralCRsForPartOfTheLineEnd) {
    EXPECT_EQ(rows("a\r\r\nb\r\n\rc\n"), (Rows{{"a\r"}, {"b"}, {"\rc"}}));
    EXPECT_EQ(rows("\r\r\r\n"), (Rows{{"\r\r"}}));
}

TEST(CSVDialectTest, leavesOutBlankLines) {
    EXPECT_EQ(rows("\n\na\n\n \n\t\n \t \nb\n\u00A0\u3000\n"), (Rows{{"a"}, {"b"}}));
    EXPECT_EQ(rows("\r\na\r\n\r\n"), (Rows{{"a"}}));
}

TEST(CSVDialectTest, keepsLinesThatOnlyLookBlank) {
    EXPECT_EQ(rows(",\n\"\"\n\r\n\v\n\u200B\n"), (Rows{{"", ""}, {""}, {"\v"}, {"\u200B"}}));
    EXPECT_EQ(rows(" \r \n"), (Rows{{" \r "}}));
    EXPECT_EQ(rows("\" \"\n"), (Rows{{" "}}));
}

TEST(CSVDialectTest, keepsBlankLinesInsideAQuotedCell) {
    EXPECT_EQ(rows("\"a\n\n \nb\"\n"), (Rows{{"a\n\n \nb"}}));
}

TEST(CSVDialectTest, hasNoRowsInABlankText) {
    EXPECT_EQ(rows(""), Rows{});
    EXPECT_EQ(rows("\n"), Rows{});
    EXPECT_EQ(rows(" \n\t\r\n\u2003"), Rows{});
}

// The cursor

TEST(CSVDialectTest, goesToTheNextRowFromTheMiddleOfOne) {
    CSVCursor cursor("a,b,c\nd,e\nf\n");
    ASSERT_TRUE(cursor.nextRow());
    EXPECT_EQ(cursor.nextCell(), "a");
    ASSERT_TRUE(cursor.nextRow());
    ASSERT_TRUE(cursor.nextRow());
    EXPECT_EQ(cursor.nextCell(), "f");
    EXPECT_EQ(cursor.nextCell(), std::nullopt);
    EXPECT_EQ(cursor.nextCell(), std::nullopt);
    EXPECT_FALSE(cursor.nextRow());
    EXPECT_FALSE(cursor.nextRow());
    EXPECT_EQ(cursor.nextCell(), std::nullopt);
}

TEST(CSVDialectTest, hasNoCellBeforeTheFirstRow) {
    EXPECT_EQ(CSVCursor("a").nextCell(), std::nullopt);
}

TEST(CSVDialectTest, walksOnIndependentlyInACopy) {
    CSVCursor cursor("a,b\nc,d\n");
    ASSERT_TRUE(cursor.nextRow());
    CSVCursor copy = cursor;
    EXPECT_EQ(rowsOf(cursor), (Rows{{"c", "d"}}));
    EXPECT_EQ(copy.nextCell(), "a");
    EXPECT_EQ(copy.nextCell(), "b");
}

// Size: each of these would take minutes if time grew faster than the text.

const std::size_t large = affordable(std::size_t{64} << 20U);

TEST(CSVDialectTest, readsOneOpenQuoteFollowedByCommas) {
    const Rows result = rows('"' + std::string(large, ','));
    ASSERT_EQ(result.size(), 1);
    EXPECT_EQ(result[0].size(), 1);
}

TEST(CSVDialectTest, readsQuotesOnly) {
    EXPECT_EQ(rows(std::string(large, '"')), (Rows{{std::string(large - 2, '"')}}));
}

TEST(CSVDialectTest, readsLineFeedsOnly) {
    EXPECT_EQ(rows(std::string(large, '\n')), Rows{});
}

TEST(CSVDialectTest, readsOneHugeCell) {
    EXPECT_EQ(rows(std::string(large, 'a')), (Rows{{std::string(large, 'a')}}));
}

TEST(CSVDialectTest, readsBlanksOnly) {
    EXPECT_EQ(rows(std::string(large, ' ')), Rows{});
}

} // namespace

} // namespace Rellinor::Tests
