#include "Private/Text/SeparatorScanner.hpp"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/RandomText.hpp"

namespace Rellinor::Tests {

namespace {

std::vector<std::size_t> found(std::string_view text) {
    std::vector<std::size_t> positions;
    SeparatorScanner scanner(text);
    for (std::size_t next = scanner.next(); next != text.size(); next = scanner.next()) {
        positions.push_back(next);
    }
    EXPECT_EQ(scanner.next(), text.size()) << "the end is not the end";
    return positions;
}

std::vector<std::size_t> foundByteByByte(std::string_view text) {
    std::vector<std::size_t> positions;
    bool insideQuotes = false;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '"') {
            insideQuotes = !insideQuotes;
        } else if (!insideQuotes && (text[index] == ',' || text[index] == '\n')) {
            positions.push_back(index);
        }
    }
    return positions;
}

using Positions = std::vector<std::size_t>;

TEST(SeparatorScannerTest, findsCommasAndLineFeedsOutsideQuotes) {
    EXPECT_EQ(found("a,b\nc"), (Positions{1, 3}));
    EXPECT_EQ(found("\",\n\","), (Positions{4}));
    EXPECT_EQ(found("\"\","), (Positions{2}));
    EXPECT_EQ(found("a\",\"b,"), (Positions{5}));
}

TEST(SeparatorScannerTest, findsNothingInAnEmptyText) {
    EXPECT_EQ(found(""), Positions{});
    EXPECT_EQ(found({}), Positions{});
}

TEST(SeparatorScannerTest, carriesOpenQuotesFromBlockToBlock) {
    for (std::size_t place = 0; place < 200; ++place) {
        std::string text(200, ',');
        text[place] = '"';
        EXPECT_EQ(found(text), foundByteByByte(text)) << "quote at " << place;
    }
}

TEST(SeparatorScannerTest, agreesWithALoopOverRandomTexts) {
    constexpr std::array<std::string_view, 8> pieces = {
        "\"", ",", "\n", "a", "\"\"", "é", "0123456789abcdef", "\r"};
    RandomText random(11);
    for (int round = 0; round < 5000; ++round) {
        const std::string text = random.of(pieces, 150);
        EXPECT_EQ(found(text), foundByteByByte(text)) << testing::PrintToString(text);
    }
}

} // namespace

} // namespace Rellinor::Tests
