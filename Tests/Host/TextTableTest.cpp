#include "Host/TextTable.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

using Texts = std::vector<std::string>;

class TextTableTest : public testing::Test {
protected:
    /// The table on a terminal of that width, or in a file.
    static std::string table(const std::vector<Column>& columns, const std::vector<Texts>& rows,
                             std::optional<std::size_t> width) {
        return written(columns, rows, {.width = width});
    }

    static std::string written(const std::vector<Column>& columns, const std::vector<Texts>& rows,
                               const Terminal& terminal, Style style = Style::plain) {
        TextTable table(columns, terminal);
        std::vector<std::vector<Cell>> cells;
        for (const Texts& row : rows) {
            std::vector<Cell>& made = cells.emplace_back();
            for (const std::string& text : row) {
                made.emplace_back(text, style);
            }
            table.measure(made);
        }
        std::ostringstream out;
        table.writeHeadings(out);
        for (const std::vector<Cell>& row : cells) {
            table.write(row, out);
        }
        return out.str();
    }
};

const std::vector<Column> oneAndTwo = {{"ONE"}, {"TWO"}};

// In a file

TEST_F(TextTableTest, alignsByWhatIsDisplayed) {
    EXPECT_EQ(table(oneAndTwo, {{"👨‍👩‍👧", "a"}, {"e\u0301", "b"}, {"漢字", "c"}},
                    std::nullopt),
              "  ONE   TWO\n"
              "  ----  ---\n"
              "  👨‍👩‍👧    a\n"
              "  e\u0301     b\n"
              "  漢字  c\n");
}

TEST_F(TextTableTest, leavesNoTrailingBlanks) {
    EXPECT_EQ(table(oneAndTwo, {{"a", ""}, {"", ""}, {"", "b  "}}, std::nullopt), "  ONE  TWO\n"
                                                                                  "  ---  ---\n"
                                                                                  "  a\n"
                                                                                  "\n"
                                                                                  "       b\n");
}

TEST_F(TextTableTest, shortensNothingInAFile) {
    const std::string text(1000, 'x');
    EXPECT_EQ(table(oneAndTwo, {{"a", text}}, std::nullopt),
              "  ONE  TWO\n"
              "  ---  ------------------------------------\n"
              "  a    " +
                  text + "\n");
}

TEST_F(TextTableTest, letsALongTextOfAFilePushOnItsOwnLineOnly) {
    const std::string text(37, 'x');
    EXPECT_EQ(table(oneAndTwo, {{"a", "b"}, {text, "c"}}, std::nullopt),
              "  ONE                                   TWO\n"
              "  ------------------------------------  ---\n"
              "  a                                     b\n"
              "  " +
                  text + "  c\n");
}

TEST_F(TextTableTest, shortensATextOfManyMegabytesEvenInAFile) {
    const std::string most(65535, 'x');
    EXPECT_TRUE(table(oneAndTwo, {{"a", std::string(5000000, 'x')}}, std::nullopt)
                    .ends_with("  a    " + most + "…\n"));
    EXPECT_TRUE(
        table(oneAndTwo, {{"a", most + "x"}}, std::nullopt).ends_with("  a    " + most + "x\n"));
}

// On a terminal

TEST_F(TextTableTest, keepsItsWidthOnAWideTerminal) {
    EXPECT_EQ(table(oneAndTwo, {{"abc", std::string(40, 'x')}}, 47),
              "  ONE  TWO\n"
              "  ---  ----------------------------------------\n"
              "  abc  xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\n");
}

TEST_F(TextTableTest, shortensTheLongColumnToTheWidthOfATerminal) {
    EXPECT_EQ(table(oneAndTwo, {{"abc", std::string(40, 'x')}}, 46),
              "  ONE  TWO\n"
              "  ---  ---------------------------------------\n"
              "  abc  xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx…\n");
}

TEST_F(TextTableTest, sharesTheRestAmongLongColumns) {
    // Of 40 columns 6 are gaps and 5 belong to the short column: 29 are left for the two others.
    EXPECT_EQ(table({{"ONE"}, {"TWO"}, {"THREE"}},
                    {{std::string(50, 'a'), "short", std::string(30, 'b')}}, 40),
              "  ONE              TWO    THREE\n"
              "  ---------------  -----  --------------\n"
              "  aaaaaaaaaaaaaa…  short  bbbbbbbbbbbbb…\n");
}

TEST_F(TextTableTest, givesWhatAColumnDoesNotNeedToTheOthers) {
    // Of 50 columns 6 are gaps: 12 are enough for one, 16 are left for each of the others.
    EXPECT_EQ(table({{"ONE"}, {"TWO"}, {"THREE"}},
                    {{std::string(50, 'a'), "twelve chars", std::string(30, 'b')}}, 50),
              "  ONE               TWO           THREE\n"
              "  ----------------  ------------  ----------------\n"
              "  aaaaaaaaaaaaaaa…  twelve chars  bbbbbbbbbbbbbbb…\n");
}

TEST_F(TextTableTest, shortensLastWhatIsOfNoUseByHalves) {
    // Of 46 columns 6 are gaps and 20 belong to the whole column: 10 are left for each of the
    // others.
    const std::string number = "4000 0000 0000 00000";
    EXPECT_EQ(table({{"ONE"}, {"TWO", true}, {"THREE"}},
                    {{std::string(50, 'a'), number, std::string(50, 'b')}}, 46),
              "  ONE         TWO                   THREE\n"
              "  ----------  --------------------  ----------\n"
              "  aaaaaaaaa…  4000 0000 0000 00000  bbbbbbbbb…\n");
}

TEST_F(TextTableTest, isAListOnANarrowTerminal) {
    // With ten columns each, the two and their gaps would need 24.
    EXPECT_EQ(
        table({{"ONE"}, {"THREE"}},
              {{"abcdefghijklmnop", "b and more text"}, {"", "漢字漢字漢字漢字"}, {"c", "d e"}},
              20),
        "\n"
        "  ONE    abcdefghij…\n"
        "  THREE  b and more…\n"
        "\n"
        "  ONE\n"
        "  THREE  漢字漢字漢…\n"
        "\n"
        "  ONE    c\n"
        "  THREE  d e\n");
}

TEST_F(TextTableTest, takesATerminalForTwentyColumnsWideAtLeast) {
    EXPECT_EQ(table(oneAndTwo, {{"abcdefghijklmnop", "b"}}, 1), "  ONE            TWO\n"
                                                                "  -------------  ---\n"
                                                                "  abcdefghijkl…  b\n");
}

TEST_F(TextTableTest, fitsEveryTerminal) {
    const std::vector<Column> columns = {{"SERVICE"}, {"PASSWORD", true}, {"URL"}, {"NOTE"}};
    const std::vector<Texts> rows = {
        {"Bank", "hunter2", std::string(60, 'u'), std::string(200, 'n')},
        {std::string(30, 's'), std::string(40, 'p'), "", ""}};
    for (std::size_t width = 20; width <= 400; ++width) {
        std::istringstream lines(table(columns, rows, width));
        std::string line;
        while (std::getline(lines, line)) {
            const auto ellipses = static_cast<std::size_t>(
                std::ranges::count(line, '\xE2')); // three bytes, but one column
            EXPECT_LE(line.size() - (2 * ellipses), width) << line;
        }
    }
}

// Colours

TEST_F(TextTableTest, isBoldAndDimWhereThereAreColours) {
    EXPECT_EQ(written(oneAndTwo, {{"a", "b"}}, {.width = 80, .colours = true}, Style::dim),
              "  \x1B[1mONE\x1B[0m  \x1B[1mTWO\x1B[0m\n"
              "  \x1B[2m---\x1B[0m  \x1B[2m---\x1B[0m\n"
              "  \x1B[2ma\x1B[0m    \x1B[2mb\x1B[0m\n");
}

TEST_F(TextTableTest, isPlainWhereThereAreNone) {
    EXPECT_EQ(written(oneAndTwo, {{"a", "b"}}, {.width = 80}, Style::dim), "  ONE  TWO\n"
                                                                           "  ---  ---\n"
                                                                           "  a    b\n");
}

TEST_F(TextTableTest, coloursNoBlanks) {
    EXPECT_EQ(written({{"ONE"}}, {{""}}, {.width = 80, .colours = true}, Style::dim),
              "  \x1B[1mONE\x1B[0m\n"
              "  \x1B[2m---\x1B[0m\n"
              "\n");
}

} // namespace

} // namespace Rellinor::Host
