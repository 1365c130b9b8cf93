#include "Host/Inspection/TextLines.hpp"
#include "Host/TextEncoding.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

std::vector<std::string> lines(std::string_view text) {
    std::vector<std::string> all;
    TextLines reader(text);
    for (TextLine line; reader.next(line);) {
        all.push_back(std::to_string(line.number) + std::string(line.text));
    }
    return all;
}

using Lines = std::vector<std::string>;

TEST(TextLinesTest, cutsLinesAtLineFeeds) {
    EXPECT_EQ(lines("a\nb\r\n\nc"), (Lines{"1a", "2b\r", "3", "4c"}));
    EXPECT_EQ(lines("a\n"), Lines{"1a"});
    EXPECT_EQ(lines("\n"), Lines{"1"});
    EXPECT_EQ(lines(""), Lines());
}

TEST(TextLinesTest, numbersTheLineOfAnOffset) {
    EXPECT_EQ(lineAt("a\nb\n", 0), 1U);
    EXPECT_EQ(lineAt("a\nb\n", 1), 1U);
    EXPECT_EQ(lineAt("a\nb\n", 2), 2U);
    EXPECT_EQ(lineAt("a\nb\n", 4), 3U);
}

TEST(TextLinesTest, dropsOneByteOrderMark) {
    EXPECT_EQ(withoutByteOrderMark("\uFEFF\uFEFFa"), "\uFEFFa");
    EXPECT_EQ(withoutByteOrderMark("a"), "a");
}

} // namespace

} // namespace Rellinor::Host
