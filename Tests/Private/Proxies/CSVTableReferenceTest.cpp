// The reader of CSV tables against the slow one that follows the rules one after the other.

#include <array>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Reference/CSVTableReference.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/CSVTables.hpp"
#include "Tests/Support/RandomText.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::array<CSVDialect, 3> dialects = {
    CSVDialect{}, {.separator = ';'}, {.quotes = CSVQuotes::backslashed}};

void expectSame(const std::string& text, const CSVDialect& dialect) {
    const Table expected = referenceTable(text, dialect);
    const Table actual = tableOf(text, dialect);
    ASSERT_EQ(actual, expected) << testing::PrintToString(text) << "\ngives\n"
                                << described(actual) << "\ninstead of\n"
                                << described(expected);
}

/// Compares texts made of a header and of pieces.
template <std::size_t count>
void compare(std::uint64_t seed, int rounds, const std::array<std::string_view, count>& pieces,
             std::size_t longest) {
    constexpr std::array<std::string_view, 11> headers = {"a,b,c\n",
                                                          "a,b\n",
                                                          "a\n",
                                                          "a,b,c\r\n",
                                                          "a,b\r",
                                                          "a;b,c;d\n",
                                                          "",
                                                          "sep=;\na;b\n",
                                                          "a,b,c,d\n",
                                                          "a,b,c,d,e,f,g,h\n",
                                                          "a,b,c,d,e,f,g,h,i,j,k,l\n"};
    RandomText random(seed);
    for (int round = 0; round < affordable(rounds); ++round) {
        const std::string text = std::string(random.oneOf(headers)) + random.of(pieces, longest);
        expectSame(text, dialects.at(random.below(dialects.size())));
        if (testing::Test::HasFatalFailure()) {
            return;
        }
    }
}

TEST(CSVTableReferenceTest, agreesOnShortRandomTexts) {
    compare(1, 200'000,
            std::array<std::string_view, 14>{"\"", "\"", "\"", ",", ",", "\n", "\n", "\r", "\\",
                                             "a", "é", ";", "\"\"", "\",\""},
            16);
}

TEST(CSVTableReferenceTest, agreesOnLinesOfBrokenCells) {
    compare(2, 200'000,
            std::array<std::string_view, 15>{"\"a\"b\"", ",", ",", ",", "\n", "\n", "a", "\"a\"",
                                             "\"a", "a\"", "\"", "\"\"", "\"a\n\"", "\"b\"c",
                                             "\r\n"},
            14);
}

TEST(CSVTableReferenceTest, agreesOnRowsOfManyBrokenCells) {
    compare(4, 100'000,
            std::array<std::string_view, 15>{"\"a\"b\",", "\"x\"y,", "\"x\"y,", "\"x\"y,",
                                             "\"x\"y,", "\"x\"y", "p\"q,", "\",", "\",\"", "\"",
                                             "\n", "\n\"", "\"a\"b\",\"", "\"x\"y,\"x\"y,", "a"},
            24);
}

TEST(CSVTableReferenceTest, agreesOnLongRandomTexts) {
    compare(3, 3'000,
            std::array<std::string_view, 14>{"\"", "\"a\"", ",", ",", "\n", "\n", "\r\n", "a",
                                             "\\\"", "0123456789012345678901234567890", "😀",
                                             "\"\"", "\",", ",\""},
            300);
}

TEST(CSVTableReferenceTest, agreesOnQuotesAroundTheEndsOfBlocks) {
    constexpr std::array<std::string_view, 7> tails = {
        "\"a\"\r\nb,c\n", "\"a\"\n", "\"a\"\"b\",c\n", "\"\"\"\",c",
        "\"a\",\"b\"",    "\"a\"\r", "\"a\" \n"};
    for (std::size_t size = 0; size < 140; ++size) {
        for (const std::string_view tail : tails) {
            const std::string fill(size, 'x');
            expectSame("a,b\n" + fill + "," + std::string(tail), {});
            expectSame("a,b\n\"" + fill + "\"," + std::string(tail), {});
            expectSame("a,b\n\"" + fill + "\"\"\"," + std::string(tail), {});
        }
    }
}

} // namespace

} // namespace Rellinor::Tests
