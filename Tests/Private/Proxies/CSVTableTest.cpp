#include "Private/Proxies/CSVTable.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/CSVTables.hpp"

namespace Rellinor::Tests {

namespace {

constexpr CSVDialect backslashed = {.quotes = CSVQuotes::backslashed};

/// The rows behind a header.
Rows rowsOf(std::string_view text, const CSVDialect& dialect = {}) {
    Rows rows;
    for (const TableRow& row : tableOf(text, dialect).rows) {
        rows.push_back(row.cells);
    }
    return rows;
}

/// What was mended in the rows, row by row, each with the line on which it begins.
using Mended = std::vector<std::pair<std::size_t, std::vector<CSVDamage>>>;

Mended mendedIn(std::string_view text) {
    Mended mended;
    for (const TableRow& row : tableOf(text).rows) {
        if (!row.damage.empty()) {
            const auto lineFeeds = std::ranges::count(text.substr(0, row.position), '\n');
            mended.emplace_back(static_cast<std::size_t>(lineFeeds) + 1, row.damage);
        }
    }
    return mended;
}

using enum CSVDamage;

// Sound tables

TEST(CSVTableTest, takesQuotesOffAnyCell) {
    EXPECT_EQ(rowsOf("a,b,c\n\"1\",2,\"\"\n"), (Rows{{"1", "2", ""}}));
    EXPECT_EQ(tableOf("\"a\",\"b\"\"c\"\n").header, (Row{"a", "b\"c"}));
}

TEST(CSVTableTest, makesOneQuoteOfTwoInsideQuotes) {
    EXPECT_EQ(rowsOf("a,b\n\"1\"\"2\",\"\"\"\"\n"), (Rows{{"1\"2", "\""}}));
}

TEST(CSVTableTest, keepsSeparatorsAndLineEndsInsideQuotes) {
    EXPECT_EQ(rowsOf("a,b\r\n\"1,\r\n\n\r2\",3\r\n"), (Rows{{"1,\r\n\n\r2", "3"}}));
}

TEST(CSVTableTest, takesABackslashForALetter) {
    EXPECT_EQ(rowsOf("a,b\n\"C:\\\",\\\n"), (Rows{{"C:\\", "\\"}}));
}

TEST(CSVTableTest, undoesBackslashesInsideQuotesOnly) {
    EXPECT_EQ(rowsOf("a,b,c\n\"1\\\"2\\\\\",\"\\n\"\"\",\\\\\n", backslashed),
              (Rows{{"1\"2\\", "\\n\"", "\\\\"}}));
    EXPECT_EQ(rowsOf("a,b\n\"1\\\",2\",3\n", backslashed), (Rows{{"1\",2", "3"}}));
}

TEST(CSVTableTest, trimsNothing) {
    EXPECT_EQ(rowsOf("a,b\n 1 ,\t2\t\n"), (Rows{{" 1 ", "\t2\t"}}));
}

TEST(CSVTableTest, endsRowsWithALineFeedAndAllCarriageReturnsBeforeIt) {
    EXPECT_EQ(rowsOf("a,b\r\n1,2\n3,4\r\r\n\"5\",\"6\"\r\r\r\n7,8"),
              (Rows{{"1", "2"}, {"3", "4"}, {"5", "6"}, {"7", "8"}}));
}

TEST(CSVTableTest, takesAnyOtherCarriageReturnForALetter) {
    EXPECT_EQ(rowsOf("a,b\n1\r,\r2\n3,4\r"), (Rows{{"1\r", "\r2"}, {"3", "4\r"}}));
}

TEST(CSVTableTest, endsRowsWithCarriageReturnsAloneIfTheFirstDoes) {
    EXPECT_EQ(rowsOf("a,b\r1,\"2\r\n\"\r\n3,4\r"), (Rows{{"1", "2\r\n"}, {"\n3", "4"}}));
    EXPECT_EQ(rowsOf("a,b\r\r1,2"), (Rows{{"1", "2"}}));
    EXPECT_EQ(rowsOf("\"a\r\",b\n1\r,2\n"),
              (Rows{{"1\r", "2"}})); // one inside quotes is no row end
    EXPECT_EQ(rowsOf("a,b\r\r\n1\r,2\n"), (Rows{{"1\r", "2"}}));
}

TEST(CSVTableTest, needsNoRowEndAtTheEnd) {
    EXPECT_EQ(rowsOf("a,b\n1,\"2\""), (Rows{{"1", "2"}}));
    EXPECT_EQ(rowsOf("a,b\n1,"), (Rows{{"1", ""}}));
}

TEST(CSVTableTest, leavesOutLinesWithoutAnyCharacter) {
    EXPECT_EQ(rowsOf("\n\r\na\n\n\r\r\n1\n\n \n\"\"\n"), (Rows{{"1"}, {" "}, {""}}));
}

TEST(CSVTableTest, hasNeitherHeaderNorRowsInAnEmptyText) {
    EXPECT_EQ(tableOf(""), Table{});
    EXPECT_EQ(tableOf("\r\n\n"), Table{});
    EXPECT_EQ(tableOf("sep=;\n"), Table{});
}

TEST(CSVTableTest, cutsAtTheSeparatorOfTheDialect) {
    EXPECT_EQ(rowsOf("a;b\n1,2;\"3;4\"\n", {.separator = ';'}), (Rows{{"1,2", "3;4"}}));
    EXPECT_EQ(rowsOf("a\tb\n1\t2\n", {.separator = '\t'}), (Rows{{"1", "2"}}));
}

TEST(CSVTableTest, honoursTheSeparatorOfAFirstLine) {
    EXPECT_EQ(tableOf("sep=;\r\na;b\r\n1,2;3\r\n").header, (Row{"a", "b"}));
    EXPECT_EQ(rowsOf("sep=;\r\na;b\r\n1,2;3\r\n"), (Rows{{"1,2", "3"}}));
    EXPECT_EQ(rowsOf("sep=|\ra|b\r1|2\r"), (Rows{{"1", "2"}}));
    EXPECT_EQ(tableOf("sep=x\na\n").header, (Row{"sep=x"}));
    EXPECT_EQ(tableOf("sep=\"\na\n").header, (Row{"sep=\""}));
    EXPECT_EQ(tableOf("\nsep=;\na;b\n").header, (Row{"sep=;"}));
}

TEST(CSVTableTest, readsTheHeaderWithoutMending) {
    EXPECT_EQ(tableOf("a\"b,\"c\"d\",e\n").header, (Row{"a\"b", "c\"d", "e"}));
    EXPECT_EQ(tableOf("a,\"b\nc,d\n"), (Table{{"a", "b\nc,d\n"}, {}}));
}

// Stray quotes

TEST(CSVTableTest, takesAQuoteForALetterInACellThatDoesNotBeginWithOne) {
    EXPECT_EQ(rowsOf("a,b\n5\" disk,\"6\"\n 7\"\",8\"\n"),
              (Rows{{"5\" disk", "6"}, {" 7\"\"", "8\""}}));
    EXPECT_EQ(mendedIn("a,b\n1,2\n5\" disk,6\n"), (Mended{{3, {strayQuote}}}));
}

TEST(CSVTableTest, takesAStrayQuoteForALetterIfTheRowFitsTheHeader) {
    EXPECT_EQ(rowsOf("a,b\n\"1\"2\",\"3 \"x\" 4\"\n"), (Rows{{"1\"2", "3 \"x\" 4"}}));
    EXPECT_EQ(mendedIn("a,b\n\"1\"2\",3\n"), (Mended{{2, {strayQuote}}}));
}

TEST(CSVTableTest, takesTheFirstQuoteForALetterIfTheRowDoesNotFitTheHeader) {
    EXPECT_EQ(rowsOf("a,b\n\"1\"x,2\",3\n"), (Rows{{"1\"x,2", "3"}}));
    EXPECT_EQ(rowsOf("a,b,c\n\"1\"x,2\",3\n"), (Rows{{"\"1\"x", "2\"", "3"}}));
    EXPECT_EQ(mendedIn("a,b,c\n\"1\"x,2\",3\n"), (Mended{{2, {strayQuote}}}));
}

TEST(CSVTableTest, takesAStrayQuoteForALetterOnTheLastLineOfItsCellOnly) {
    EXPECT_EQ(rowsOf("a,b\n1,\"2\n3 \"x\" 4\"\n5,6\n"), (Rows{{"1", "2\n3 \"x\" 4"}, {"5", "6"}}));
    EXPECT_EQ(rowsOf("a,b\n1,\"2 \"x\" 3\n4\",5\n6,7\n"),
              (Rows{{"1", "\"2 \"x\" 3"}, {"4\"", "5"}, {"6", "7"}}));
}

TEST(CSVTableTest, doesNotReadASoundRowIntoACellThatBeganBeforeIt) {
    EXPECT_EQ(rowsOf("a,b\n1,\"2\n\"3\",\"4\"\n5,6\n"),
              (Rows{{"1", "\"2"}, {"3", "4"}, {"5", "6"}}));
    EXPECT_EQ(mendedIn("a,b\n1,\"2\n\"3\",\"4\"\n5,6\n"), (Mended{{2, {strayQuote}}}));
    // Quotes in its other cells are letters.
    EXPECT_EQ(rowsOf("a,b\n1,\"2\n3\"x,\"4\"\n"), (Rows{{"1", "\"2"}, {"3\"x", "4"}}));
}

TEST(CSVTableTest, takesAQuoteForALetterThatIsNeverClosed) {
    EXPECT_EQ(rowsOf("a,b\n1,\"2\n3,4\n"), (Rows{{"1", "\"2"}, {"3", "4"}}));
    EXPECT_EQ(rowsOf("a,b\n1,\"2\"\""), (Rows{{"1", "\"2\"\""}}));
    EXPECT_EQ(mendedIn("a,b\n1,\"2\n3,4\n"), (Mended{{2, {strayQuote}}}));
}

TEST(CSVTableTest, takesTheFirstOfSeveralSuchQuotesForALetter) {
    // With the first cell's quote as a letter the row fits the header: the second cell stays
    // quoted.
    EXPECT_EQ(rowsOf("a,b,c\n\"1\"x,2\"y\",\"3\"z,4\"\n"), (Rows{{"\"1\"x", "2\"y\"", "3\"z,4"}}));
}

TEST(CSVTableTest, givesUpQuotedCellsAfterEightLettersInARow) {
    std::string row;
    for (int count = 0; count < 8; ++count) {
        row += "\"x\"y,";
    }
    // Seven letters leave the last cell as it fits; eight do not.
    EXPECT_EQ(rowsOf("a,b,c,d,e,f,g,h\n" + row.substr(5) + "\"1\"2\"\n").front().back(), "1\"2");
    EXPECT_EQ(rowsOf("a,b,c,d,e,f,g,h,i\n" + row + "\"1\"2\"\n").front().back(), "\"1\"2\"");
}

// Too few and too many cells

TEST(CSVTableTest, joinsLinesUntilTheyFitTheHeader) {
    EXPECT_EQ(rowsOf("a,b,c\n1,note\nof several\nlines,2\n3,4,5\n"),
              (Rows{{"1", "note\nof several\nlines", "2"}, {"3", "4", "5"}}));
    EXPECT_EQ(mendedIn("a,b,c\n0,0,0\n1,note\nlines,2\n"), (Mended{{3, {joinedLines}}}));
}

TEST(CSVTableTest, joinsWithALineFeedWhateverEndsRows) {
    EXPECT_EQ(rowsOf("a,b,c\r\n1,2\r\n3,4\r\n"), (Rows{{"1", "2\n3", "4"}}));
    EXPECT_EQ(rowsOf("a,b,c\r1,\"2\"\r\r\"3\",4\r"), (Rows{{"1", "2\n3", "4"}}));
}

TEST(CSVTableTest, beginsJoiningAnewBehindACompleteRow) {
    EXPECT_EQ(rowsOf("a,b,c\n1,2\n3,4\n5,6\n7,8\n"),
              (Rows{{"1", "2\n3", "4"}, {"5", "6\n7", "8"}}));
}

TEST(CSVTableTest, makesRowsOfLinesWhoseRunEnds) {
    EXPECT_EQ(rowsOf("a,b,c\n1\n2,3\n4,5,6\n"), (Rows{{"1"}, {"2", "3"}, {"4", "5", "6"}}));
    EXPECT_EQ(rowsOf("a,b,c\n1\n2"), (Rows{{"1"}, {"2"}}));
    EXPECT_EQ(mendedIn("a,b,c\n1\n2,3\n4,5,6\n"), (Mended{{2, {shortRow}}, {3, {shortRow}}}));
}

TEST(CSVTableTest, beginsJoiningAnewWithALineThatWouldBeTooMuch) {
    EXPECT_EQ(rowsOf("a,b,c,d\n1\n2,3,4\n5,6,7\n8,9\n"),
              (Rows{{"1"}, {"2", "3", "4"}, {"5", "6", "7\n8", "9"}}));
}

TEST(CSVTableTest, keepsCellsBeyondTheHeader) {
    EXPECT_EQ(rowsOf("a,b\n1,2,3,4\n5,6,,\n"), (Rows{{"1", "2", "3", "4"}, {"5", "6"}}));
    EXPECT_EQ(mendedIn("a,b\n1,2,3\n5,6,,\n"), (Mended{{2, {longRow}}}));
}

TEST(CSVTableTest, leavesNothingOfALongRowInAShortOne) {
    EXPECT_EQ(rowsOf("a,b\n1,2,3,4\n5\n6,7,8\n"),
              (Rows{{"1", "2", "3", "4"}, {"5"}, {"6", "7", "8"}}));
}

// Size: each of these would take minutes if time grew faster than the text.

/// How many rows there are, and cells in them.
std::pair<std::size_t, std::size_t> sizeOf(std::string text) {
    ImportMemory memory;
    CSVTable table(text, {}, memory, {});
    std::pair<std::size_t, std::size_t> size;
    for (const std::span<const std::string_view> row : table) {
        size.first += 1;
        size.second += row.size();
    }
    return size;
}

std::string repeated(std::string_view part, std::size_t count) {
    std::string text;
    text.reserve(part.size() * count);
    for (; count > 0; --count) {
        text += part;
    }
    return text;
}

using Size = std::pair<std::size_t, std::size_t>;
const std::size_t many = affordable(std::size_t{500'000});

TEST(CSVTableTest, readsQuotesOnly) {
    EXPECT_EQ(sizeOf("a\n" + repeated("\"", 16 * many)), (Size{1, 1}));
}

TEST(CSVTableTest, readsAnOpenQuoteAndLineFeeds) {
    EXPECT_EQ(sizeOf("a,b\n1,\"" + repeated("\n", 8 * many)), (Size{1, 2}));
}

TEST(CSVTableTest, readsCarriageReturnsOnly) {
    EXPECT_EQ(sizeOf("a,b\n1,2" + repeated("\r", 16 * many)), (Size{1, 2}));
    EXPECT_EQ(sizeOf("a,b\n" + repeated("\"\r\r\r", many)), (Size{1, 1}));
}

TEST(CSVTableTest, readsQuotesThatNobodyClosesOnEveryLine) {
    for (const std::string_view line :
         {"\"1,2\n", "1,\"2\n", "\"\"1,2\n", "\"\"\"1,2\n", "1,\"\"2\n", "\"1\"2,\"3\n"}) {
        EXPECT_EQ(sizeOf("a,b\n" + repeated(line, many)), (Size{many, 2 * many})) << line;
    }
}

TEST(CSVTableTest, readsACellThatRunsOverManyRowsInVain) {
    const std::string rows = repeated("1,2\n", many);
    EXPECT_EQ(sizeOf("a,b\n1,\"2\n" + rows), (Size{many + 1, 2 * many + 2}));
    EXPECT_EQ(sizeOf("a,b\n1,\"2\n" + rows + "3,4\"5\n"), (Size{many + 2, 2 * many + 4}));
}

TEST(CSVTableTest, readsAMillionColumns) {
    const std::string columns = repeated(",", 2 * many);
    EXPECT_EQ(sizeOf(columns + "\n" + columns), (Size{1, 2 * many + 1}));
    EXPECT_EQ(sizeOf("a\n" + repeated("\"1\"2\",", many)), (Size{1, many}));
    EXPECT_EQ(sizeOf(columns + "\n" + repeated("\"1\"2\",", 2 * many)), (Size{1, 2 * many + 1}));
}

TEST(CSVTableTest, readsShortLinesUnderAWideHeader) {
    const std::string header = repeated(",", many) + "\n";
    EXPECT_EQ(sizeOf(header + repeated("1\n", many)), (Size{many, many}));
    EXPECT_EQ(sizeOf(header + repeated("1,2\n", many)).first, 1);
    EXPECT_EQ(sizeOf(header + repeated("1,2\n", many - 1)).first, many - 1);
}

TEST(CSVTableTest, readsLinesThatRunIntoEachOtherUnderAWideHeader) {
    // Each line may end a cell of the one before, and begins one that the next may end.
    const std::string header = repeated(",", many) + "\n";
    EXPECT_EQ(sizeOf(header + repeated("\"1\"2\",\"\n", many / 2)).first, many / 2);
}

TEST(CSVTableTest, readsLinesThatFitTheHeaderUpToABrokenCellFarAway) {
    // Every line has one cell more than the line before, so that each row has the header's width
    // with all lines behind it, but for the last of its cells.
    std::size_t lines = 1'000;
    std::string text = repeated(",", lines) + "\n";
    for (std::size_t line = 0; line < lines; ++line) {
        text += repeated("p,", line) + "\"x\"y\",\"" + (line + 1 < lines ? "\n" : "q,q\n\"z\n");
    }
    EXPECT_EQ(sizeOf(text).first, lines + 1);
}

// Memory

TEST(CSVTableTest, allocatesNothingForARow) {
    const auto allocationsFor = [](std::size_t rows) {
        std::string text = "a,b,c\n" + repeated("1,\"2\"\"\",\"3\"\n", rows);
        return allocationsOf([&] {
            ImportMemory memory;
            CSVTable table(text, {}, memory, {});
            EXPECT_EQ(std::ranges::distance(table.begin(), CSVTable::end()), rows);
        });
    };
    EXPECT_EQ(allocationsFor(10'000), allocationsFor(10));
}

} // namespace

} // namespace Rellinor::Tests
