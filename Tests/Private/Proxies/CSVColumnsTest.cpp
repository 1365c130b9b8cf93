#include "Private/Proxies/CSVColumns.hpp"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Tests/Support/CSV.hpp"

namespace Rellinor::Tests {

namespace {

using Positions = std::vector<std::optional<std::size_t>>;

constexpr auto headersABC = csvHeaders(std::array{Column::a, Column::b, Column::c});

/// Keys and positions of the columns, in their order: "b0 a2".
std::string described(const CSVColumns& columns) {
    std::string text;
    for (const CSVColumns::Column& column : columns.columns()) {
        text += text.empty() ? "" : " ";
        text += rawValue(static_cast<Column>(column.key));
        text += std::to_string(column.position);
    }
    return text;
}

/// The message that `work` throws.
std::string messageOf(auto&& work) {
    try {
        work();
    } catch (const TextError& error) {
        return error.what();
    }
    return "nothing was thrown";
}

TEST(CSVColumnsTest, areOrderedByTheirPositionInTheHeaderRow) {
    EXPECT_EQ(described(CSVColumns::fromHeaderRow(headersABC, Positions{2, 5, 0})), "c0 a2 b5");
}

TEST(CSVColumnsTest, haveAnEmptyTextWhereARowIsShorterThanTheHeaderRow) {
    const CSVColumns columns = CSVColumns::fromHeaderRow(headersABC, Positions{0, 1, 2});
    ASSERT_EQ(columns.emptyRow().size(), 3);
    for (const std::string_view cell : columns.emptyRow()) {
        EXPECT_NE(cell.data(), nullptr);
        EXPECT_EQ(cell, "");
    }
}

TEST(CSVColumnsTest, failIfAPositionInTheHeaderRowIsMissing) {
    EXPECT_EQ(messageOf([] {
                  (void)CSVColumns::fromHeaderRow(headersABC, Positions{0, std::nullopt, 2});
              }),
              "File does not contain expected headers");
}

TEST(CSVColumnsTest, followTheExpectedHeadersWithoutAHeaderRow) {
    EXPECT_EQ(described(CSVColumns::byPosition(headersABC, 3)), "a0 b1 c2");
}

TEST(CSVColumnsTest, areAbsentWhereARowIsTooShortWithoutAHeaderRow) {
    const CSVColumns columns = CSVColumns::byPosition(headersABC, 3);
    ASSERT_EQ(columns.emptyRow().size(), 3);
    for (const std::string_view cell : columns.emptyRow()) {
        EXPECT_EQ(cell.data(), nullptr);
    }
}

TEST(CSVColumnsTest, failWithoutAHeaderRowIfTheNumberOfFieldsDiffers) {
    for (const std::size_t numberOfFields : {0U, 2U, 4U}) {
        EXPECT_EQ(messageOf([&] { (void)CSVColumns::byPosition(headersABC, numberOfFields); }),
                  "The number of fields must be equal to the number of headers for a csv without "
                  "headers");
    }
}

} // namespace

} // namespace Rellinor::Tests
