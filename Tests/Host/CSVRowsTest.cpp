#include "Host/CSVRows.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

using Rows = std::vector<std::vector<std::string>>;

/// The cells of all rows, as an import gives them.
Rows rows(std::string_view text) {
    CSVRows reader(text);
    Rows all;
    for (CSVRow row; reader.next(row);) {
        std::vector<std::string>& cells = all.emplace_back();
        for (const std::string_view cell : row.cells) {
            cells.emplace_back(unquoted(cell));
        }
    }
    return all;
}

/// The lines where the rows begin.
std::vector<std::size_t> lines(std::string_view text) {
    CSVRows reader(text);
    std::vector<std::size_t> all;
    for (CSVRow row; reader.next(row);) {
        all.push_back(row.line);
    }
    return all;
}

TEST(CSVRowsTest, cutsRowsAndCells) {
    EXPECT_EQ(rows("a,b\nc,\n"), (Rows{{"a", "b"}, {"c", ""}}));
    EXPECT_EQ(rows(""), Rows());
    EXPECT_EQ(rows("a"), (Rows{{"a"}}));
}

TEST(CSVRowsTest, keepsCommasAndLineBreaksInQuotes) {
    EXPECT_EQ(rows("\"a,b\nc\",d\ne"), (Rows{{"a,b\nc", "d"}, {"e"}}));
    EXPECT_EQ(rows("x\"a,b\"y,z"), (Rows{{"x\"a,b\"y", "z"}}));
}

TEST(CSVRowsTest, keepsDoubledQuotesAndMakesThemOfEscapedOnes) {
    EXPECT_EQ(rows("\"ab\"\"c\""), (Rows{{"ab\"\"c"}}));
    EXPECT_EQ(rows("\"ab\\\"c\""), (Rows{{"ab\"\"c"}}));
}

TEST(CSVRowsTest, endsLinesWithLineFeedsAndCarriageReturnsBeforeThem) {
    EXPECT_EQ(rows("a\r\nb\rc\r\r\nd"), (Rows{{"a"}, {"b\rc\r"}, {"d"}}));
}

TEST(CSVRowsTest, dropsBlankRowsAndAByteOrderMark) {
    EXPECT_EQ(rows("\uFEFFa\n \t\u3000\n\nb\n"), (Rows{{"a"}, {"b"}}));
}

TEST(CSVRowsTest, takesAQuoteThatStaysOpenToTheEnd) {
    EXPECT_EQ(rows("a\nb,\"c\nd,e\n"), (Rows{{"a"}, {"b", "\"c\nd,e\n"}}));
    EXPECT_EQ(rows("a,\""), (Rows{{"a", ""}}));
}

TEST(CSVRowsTest, countsLinesWhereRowsBegin) {
    EXPECT_EQ(lines("a\n\nb,\"1\n2\r\n3\"\nc"), (std::vector<std::size_t>{1, 3, 6}));
}

TEST(CSVRowsTest, keepsEscapedQuotesInWhatIsWritten) {
    CSVRows reader(std::string_view("\uFEFFa\r\n\"b\\\"c\"\r\n"));
    CSVRow row;
    ASSERT_TRUE(reader.next(row));
    EXPECT_EQ(row.written, "a");
    ASSERT_TRUE(reader.next(row));
    EXPECT_EQ(row.written, "\"b\\\"c\"");
    EXPECT_EQ(row.text, "\"b\"\"c\"");
}

TEST(CSVRowsTest, listsNotMoreThanAHundredCellsButCountsAll) {
    CSVRows reader(std::string(250, ','));
    CSVRow row;
    ASSERT_TRUE(reader.next(row));
    EXPECT_EQ(row.cells.size(), 100);
    EXPECT_EQ(row.numberOfCells, 251);
}

TEST(CSVRowsTest, walksAllCells) {
    CSVCells cells("a,\"b,c\",");
    std::vector<std::string_view> all;
    for (std::string_view cell; cells.next(cell);) {
        all.push_back(cell);
    }
    EXPECT_EQ(all, (std::vector<std::string_view>{"a", "\"b,c\"", ""}));
}

} // namespace

} // namespace Rellinor::Host
