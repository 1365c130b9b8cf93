// Whole imports against the reference that follows the words of the rules.

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Reference/KeePassReference.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/Reports.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::array<std::string_view, 10> cells = {
    "",           "a",          " ",  "\"x,\ny\"", "\"q\"\"q\"",
    "\"b\\\"b\"", "\xC3\xA9\r", "\"", "Password",  "\"Group\"",
};
constexpr std::array<std::string_view, 5> classicNames = {"Account", "Login Name", "Password",
                                                          "Web Site", "Comments"};
constexpr std::array<std::string_view, 6> xcNames = {"Group",    "Title", "Username",
                                                     "Password", "URL",   "Notes"};

std::string randomRow(RandomText& random, std::size_t length) {
    std::string row;
    for (std::size_t index = 0; index < length; ++index) {
        row += index == 0 ? "" : ",";
        row += random.oneOf(cells);
    }
    return row;
}

/// The names in their order, or from another one on, and sometimes one too few or too many.
std::string randomHeader(RandomText& random, const auto& names) {
    std::string header;
    const std::size_t first = random.below(3) == 0 ? random.below(names.size()) : 0;
    const std::size_t length = names.size() + (random.below(8) == 0 ? random.below(3) : 1) - 1;
    for (std::size_t index = 0; index < length; ++index) {
        header += index == 0 ? "" : ",";
        header += names.at((first + index) % names.size());
    }
    return header;
}

std::string randomExport(RandomText& random) {
    const std::string_view lineEnd = random.below(3) == 0 ? "\r\n" : "\n";
    const std::size_t columns = 5 + random.below(2);
    std::string text;
    if (random.below(4) != 0) {
        text += columns == 5 ? randomHeader(random, classicNames) : randomHeader(random, xcNames);
        text += lineEnd;
    }
    for (std::size_t rows = random.below(8); rows > 0; --rows) {
        text += randomRow(random, random.below(4) == 0 ? random.below(9) : columns);
        text += lineEnd;
    }
    return text;
}

TEST(KeePassReferenceTest, agreesOnRandomExports) {
    const TemporaryFolder folder;
    RandomText random(7);
    std::size_t records = 0;
    std::size_t failures = 0;
    for (int round = 0; round < affordable(5'000); ++round) {
        const std::string text = randomExport(random);
        const std::string path = folder.file("export.csv", text);
        const Outcome expected = referenceKeePassImport(text);
        const ImportSource source =
            random.below(2) == 0 ? ImportSource::keePass : ImportSource::keePassXC;
        ASSERT_EQ(outcomeOf(source, path), expected) << testing::PrintToString(text);
        ASSERT_TRUE(isConsistent(readExport(ExportFile::atPath(path), {.as = source})))
            << testing::PrintToString(text);
        records += expected.passwords.size();
        failures += expected.error ? 1U : 0U;
    }
    // Otherwise the exports were not what they are meant to be.
    EXPECT_GT(records, affordable(5'000));
    EXPECT_GT(failures, affordable(500));
}

TEST(KeePassReferenceTest, agreesOnEveryFixture) {
    std::size_t fixtures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RELLINOR_FIXTURES "/KeePass")) {
        std::string text = contentsOf(entry.path());
        if (text.starts_with("\uFEFF")) {
            text.erase(0, 3);
        }
        EXPECT_EQ(outcomeOf(ImportSource::keePass, entry.path().native()),
                  referenceKeePassImport(text))
            << entry.path();
        ++fixtures;
    }
    EXPECT_GT(fixtures, 2);
}

} // namespace

} // namespace Rellinor::Tests
