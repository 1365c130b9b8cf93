// The fast reader of CSV against the slow one that follows the words of the dialect.

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/CSV.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

TEST(CSVReferenceTest, theReferenceItselfReadsWhatIsWorkedOutByHand) {
    EXPECT_EQ(referenceRows("a,\"b\",c\r\n \n\"d\"\"e\\\",\nf\",g"),
              (Rows{{"a", "b", "c"}, {"d\"\"e\"\",\nf", "g"}}));
    EXPECT_EQ(referenceRows("a, \"b\",\"c,\nd\"\r\r\n"), (Rows{{"a", " \"b\"", "\"c,\nd\"\r"}}));
    EXPECT_EQ(referenceRows("\u00A0\n\"\""), (Rows{{""}}));
    EXPECT_EQ(referenceRows("\""), (Rows{{""}}));
}

constexpr std::array<std::string_view, 17> pieces = {
    "\"", ",",  "\\", "\r",     "\n",   " ",    "a",  "é",        "😀",
    "\t", "\"", ",",  "\u00A0", "\r\n", "\\\"", "\n", "\"\u0301",
};

TEST(CSVReferenceTest, agreesOnShortRandomTexts) {
    RandomText random(1);
    for (int round = 0; round < affordable(100'000); ++round) {
        const std::string text = random.of(pieces, 14);
        ASSERT_EQ(rows(text), referenceRows(text)) << testing::PrintToString(text);
    }
}

TEST(CSVReferenceTest, agreesOnLongRandomTexts) {
    RandomText random(2);
    for (int round = 0; round < affordable(3'000); ++round) {
        const std::string text = random.of(pieces, 400);
        ASSERT_EQ(rows(text), referenceRows(text)) << testing::PrintToString(text);
    }
}

TEST(CSVReferenceTest, agreesOnTextsOfLongCells) {
    constexpr std::array<std::string_view, 6> longPieces = {
        "0123456789012345678901234567890123456789", "\"", ",", "\n", "\\\"", "\r\n"};
    RandomText random(3);
    for (int round = 0; round < affordable(3'000); ++round) {
        const std::string text = random.of(longPieces, 60);
        ASSERT_EQ(rows(text), referenceRows(text)) << testing::PrintToString(text);
    }
}

TEST(CSVReferenceTest, agreesOnEveryFixtureCutAtEveryByte) {
    std::size_t cuts = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RELLINOR_FIXTURES "/LastPass")) {
        const std::string text = contentsOf(entry.path());
        for (std::size_t length = 0; length <= text.size(); ++length, ++cuts) {
            const std::string_view cut = std::string_view(text).substr(0, length);
            ASSERT_EQ(rows(cut), referenceRows(cut)) << entry.path() << " cut at " << length;
        }
    }
    EXPECT_GT(cuts, 1000);
}

} // namespace

} // namespace Rellinor::Tests
