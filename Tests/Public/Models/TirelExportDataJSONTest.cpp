#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <Rellinor/Models/TirelExportDataJSON.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/TirelExport.hpp"

namespace Rellinor::Tests {

namespace {

/// What Boost.JSON reads of a text, as records; a failure if it is no export.
Outcome read(std::string_view text) {
    const auto data = boost::json::try_value_to<TirelExportData>(
        boost::json::parse(boost::json::string_view(text.data(), text.size())));
    return data ? outcomeOf(*data) : failedWithText();
}

/// What the library decodes of it.
Outcome decoded(std::string_view text) {
    const auto data = TirelExportData::decode(text);
    return data ? outcomeOf(*data) : failedWithText();
}

TEST(TirelExportDataJSONTest, readsAndWritesWhatTheLibraryDoes) {
    for (std::uint64_t seed = 0; seed < affordable(3000U); ++seed) {
        const TirelExportData data = randomTirelExportData(seed);
        const std::string text = boost::json::serialize(boost::json::value_from(data));
        ASSERT_EQ(boost::json::serialize(boost::json::parse(data.encode())), text) << seed;
        ASSERT_EQ(read(data.encode()), outcomeOf(data)) << seed;
        ASSERT_EQ(decoded(text), outcomeOf(data)) << seed;
    }
}

TEST(TirelExportDataJSONTest, readsWhatTheLibraryDecodes) {
    for (const std::string& text : acceptedTirelExports()) {
        EXPECT_EQ(read(text), decoded(text)) << text;
    }
    for (const std::string& text : rejectedTirelExports()) {
        EXPECT_EQ(read(text), failedWithText()) << text;
    }
    for (const auto& [integer, value] : acceptedIntegers()) {
        const std::string text = exportOfNote(aNote().with("color", integer));
        EXPECT_EQ(read(text), (Outcome{.notes = {{value, "Wi-Fi", "text"}}})) << text;
    }
    EXPECT_EQ(read("[]"), failedWithText());
    EXPECT_EQ(read("null"), failedWithText());
}

TEST(TirelExportDataJSONTest, throwsForWhatIsNoExport) {
    EXPECT_ANY_THROW((void)boost::json::value_to<TirelExportData>(
        boost::json::parse(emptyExport().without("cards").text())));
}

// As Boost.JSON has it

TEST(TirelExportDataJSONTest, roundsAnIntegerWithAPointOrAnExponent) {
    const auto color = [](std::string_view integer) {
        const std::string text = exportOfNote(aNote().with("color", integer));
        EXPECT_NE(read(text), decoded(text)) << text;
        const Outcome outcome = read(text);
        return outcome.notes.empty() ? std::nullopt : outcome.notes[0].color;
    };
    EXPECT_EQ(color("9007199254740993.0"), 9007199254740992);
    EXPECT_EQ(color("1.00000000000000000001"), 1);
    EXPECT_EQ(color("9223372036854775807.0"), std::nullopt);
}

TEST(TirelExportDataJSONTest, takesTheLastOfTwoMembersOfOneName) {
    const std::string text = R"({"logins":[],"notes":5,"cards":[],"notes":[]})";
    EXPECT_EQ(read(text), Outcome());
    EXPECT_EQ(decoded(text), failedWithText());
}

} // namespace

} // namespace Rellinor::Tests
