// Whole imports against the reference that follows the words of the rules.

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Reference/DashlaneReference.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/Reports.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::array<std::string_view, 40> pieces = {
    "{01234567-89AB-CDEF-0123-456789ABCDEF}",
    "{01234567-89ab-cdef-0123-456789abcdef}",
    "{fEdCbA98-7654-3210-fEdC-bA9876543210}",
    "{01234567-89AB-CDEF-0123-456789ABCDE}",
    "{01234567-89AB-CDEF-0123456789ABCDEF}",
    "{01234567-89AB-CDEF-0123-456789ABCDEG}",
    "{01234567-89AB-",
    "CDEF-0123-456789ABCDEF}",
    "{01234567",
    "-89AB-CDEF-0123-",
    "456789ABCDEF}",
    "{",
    "}",
    "{{",
    "-",
    "0123",
    "ABCDEF",
    "a",
    "one",
    " ",
    ",",
    ",",
    ",",
    ",",
    "\",\"",
    "\"",
    "\\\"",
    "\n",
    "\r\n",
    "\"\r\r\n\"",
    "\r",
    "\u00E9",
    "e\u0301",
    "\u0301",
    "\U0001F511",
    "\U0001F1E9",
    "\U0001F1E9\U0001F1EA",
    "\U0001F468\u200D\U0001F469\u200D\U0001F467",
    "\u200D",
    "\u0600",
};

/// A row whose identifier stands near the end of the search window, with what widens the text
/// before it and what makes up for that behind.
constexpr std::array<std::string_view, 9> wide = {
    "\U0001F511",
    "e\u0301",
    "\U0001F1E9\U0001F1EA",
    "\"\r\r\n\"",
    "\U0001F468\u200D\U0001F469",
    "\u00E9",
    "x",
    "",
    ",",
};
constexpr std::array<std::string_view, 6> narrow = {"x", "xy", "", "\u00E9", "\u0301", ","};

std::string randomRow(RandomText& random) {
    std::string row;
    if (random.below(3) == 0) {
        return random.of(pieces, 24);
    }
    row += random.of(wide, 6);
    row += pieces.at(random.below(3));
    row += random.of(narrow, 8);
    return std::string(random.below(5), ',') + row + std::string(random.below(5), ',');
}

TEST(DashlaneReferenceTest, agreesOnRandomExports) {
    const TemporaryFolder folder;
    RandomText random(11);
    std::size_t rows = 0;
    std::size_t kept = 0;
    std::size_t outside = 0;
    for (int round = 0; round < affordable(5'000); ++round) {
        std::string text;
        for (std::size_t count = 1 + random.below(8); count > 0; --count) {
            text += randomRow(random) + "\n";
        }
        const Outcome expected = referenceDashlaneImport(text);
        const std::string path = folder.file("export.csv", text);
        ASSERT_EQ(outcomeOf(ImportSource::dashlane, path), expected)
            << testing::PrintToString(text);
        ASSERT_TRUE(
            isConsistent(readExport(ExportFile::atPath(path), {.as = ImportSource::dashlane})))
            << testing::PrintToString(text);

        for (const Row& row : referenceRows(text)) {
            std::string joined;
            for (const std::string& cell : row) {
                joined += cell;
            }
            const std::u16string units = inUTF16(joined);
            rows += row.size() > 4 ? 1U : 0U;
            outside += row.size() > 4 && identifiersIn(units, units.size()) > 0 ? 1U : 0U;
        }
        kept += expected.passwords.size();
    }
    // Otherwise the exports were not what they are meant to be: rows that are dropped, rows that
    // are kept, and among these some with an identifier outside the search window.
    EXPECT_GT(rows, affordable(8'000));
    EXPECT_GT(kept, affordable(4'000));
    EXPECT_GT(rows - kept, affordable(2'000));
    EXPECT_GT(outside, rows - kept + affordable(500U));
}

TEST(DashlaneReferenceTest, agreesOnEveryFixture) {
    std::size_t fixtures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RELLINOR_FIXTURES "/Dashlane")) {
        std::string text = contentsOf(entry.path());
        if (text.starts_with("\uFEFF")) {
            text.erase(0, 3);
        }
        EXPECT_EQ(outcomeOf(ImportSource::dashlane, entry.path().native()),
                  referenceDashlaneImport(text))
            << entry.path();
        ++fixtures;
    }
    EXPECT_GT(fixtures, 2);
}

TEST(DashlaneReferenceTest, writesUTF16) {
    EXPECT_EQ(inUTF16("a\u00E9\u20AC\U0001F511\U0010FFFF"), u"a\u00E9\u20AC\U0001F511\U0010FFFF");
}

} // namespace

} // namespace Rellinor::Tests
