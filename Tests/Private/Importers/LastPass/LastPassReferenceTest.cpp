// Whole imports against the reference that follows the words of the rules.

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Reference/LastPassReference.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/Reports.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

const std::set<std::string>& urlsOfNotes() {
    static const std::set<std::string> urls = {"http://sn", "https://sn/x", "//sn", "http://%73n/"};
    return urls;
}

constexpr std::array<std::string_view, 16> cells = {
    "",           "a",          " ",          "http://sn",         "https://sn/x", "//sn",
    "sn",         "http://SN",  "http://snx", "http://%73n/",      "\"x,\ny\"",    "\"q\"\"q\"",
    "\"b\\\"b\"", "\xC3\xA9\r", "\"",         "https://a.example",
};
constexpr std::array<std::string_view, 7> names = {"url",  "username", "password", "extra",
                                                   "name", "grouping", "fav"};

/// A text without a leading byte-order mark.
std::string decoded(std::string text) {
    if (text.starts_with("\uFEFF")) {
        text.erase(0, 3);
    }
    return text;
}

std::string randomRow(RandomText& random, const auto& choices, std::size_t length) {
    std::string row;
    for (std::size_t index = 0; index < length; ++index) {
        row += index == 0 ? "" : ",";
        row += choices.at(choices.size() == length ? index : random.below(choices.size()));
    }
    return row;
}

std::string randomExport(RandomText& random) {
    const std::string_view lineEnd = random.below(3) == 0 ? "\r\n" : "\n";
    std::string text = random.below(8) == 0 ? "\uFEFF" : "";
    if (random.below(4) != 0) {
        text += randomRow(random, names, random.below(8) == 0 ? 6 : 7);
        text += lineEnd;
    }
    for (std::size_t rows = random.below(8); rows > 0; --rows) {
        text += randomRow(random, cells, random.below(4) == 0 ? random.below(10) : 7);
        text += lineEnd;
    }
    return text;
}

TEST(LastPassReferenceTest, agreesOnRandomExports) {
    const TemporaryFolder folder;
    RandomText random(5);
    std::size_t records = 0;
    std::size_t failures = 0;
    for (int round = 0; round < affordable(5'000); ++round) {
        const std::string text = randomExport(random);
        const std::string path = folder.file("export.csv", text);
        const Outcome expected = referenceLastPassImport(decoded(text), urlsOfNotes());
        ASSERT_EQ(outcomeOf(ImportSource::lastPass, path), expected)
            << testing::PrintToString(text);
        ASSERT_TRUE(
            isConsistent(readExport(ExportFile::atPath(path), {.as = ImportSource::lastPass})))
            << testing::PrintToString(text);
        records += expected.passwords.size() + expected.notes.size();
        failures += expected.error ? 1U : 0U;
    }
    // Otherwise the exports were not what they are meant to be.
    EXPECT_GT(records, affordable(5'000));
    EXPECT_GT(failures, affordable(500));
}

TEST(LastPassReferenceTest, agreesOnEveryFixture) {
    std::size_t fixtures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RELLINOR_FIXTURES "/LastPass")) {
        const Outcome expected =
            referenceLastPassImport(decoded(contentsOf(entry.path())), urlsOfNotes());
        EXPECT_EQ(outcomeOf(ImportSource::lastPass, entry.path().native()), expected)
            << entry.path();
        ++fixtures;
    }
    EXPECT_GT(fixtures, 2);
}

} // namespace

} // namespace Rellinor::Tests
