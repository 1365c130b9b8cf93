#include "Platform/JSONParser.hpp"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/JSONTexts.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

/// Writes down what it is told.
class Notes final : public JSONEvents {
public:
    void beginObject() override { text += '{'; }

    void endObject() override { text += '}'; }

    void beginArray() override { text += '['; }

    void endArray() override { text += ']'; }

    void key(std::string_view key) override { text += std::string(key) + '='; }

    void string(std::string_view string) override { text += '<' + std::string(string) + '>'; }

    void decodedString(std::string_view string) override {
        text += '"' + std::string(string) + '"';
    }

    void integer(std::int64_t value) override { text += std::to_string(value) + ';'; }

    void null() override { text += '-'; }

    void otherValue() override { text += '.'; }

    std::string text;
};

/// What is told of a text; absent if it is rejected.
std::optional<std::string> told(std::string_view text) {
    // Exactly as large as the text, so that a sanitizer sees a single byte read behind it.
    const auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::ranges::copy(text, copy.get());
    Notes notes;
    return parseJSON({{copy.get(), text.size()}}, notes) ? std::optional(notes.text) : std::nullopt;
}

TEST(JSONParserTest, tellsThePartsInTheirOrder) {
    EXPECT_EQ(told(R"({"a":[1,"b",{}],"c":{"d":null},"e":true})"), "{a=[1;<b>{}]c={d=-}e=.}");
}

TEST(JSONParserTest, acceptsJSON) {
    for (const std::string_view good : acceptedJSON()) {
        EXPECT_TRUE(told(good)) << testing::PrintToString(good);
    }
}

TEST(JSONParserTest, rejectsWhatIsNotJSON) {
    for (const std::string_view bad : rejectedJSON()) {
        EXPECT_FALSE(told(bad)) << testing::PrintToString(bad);
    }
}

TEST(JSONParserTest, rejectsAByteOrderMark) {
    EXPECT_FALSE(told("\uFEFF{}"));
}

TEST(JSONParserTest, rejectsASingleValueAtTheTop) {
    for (const std::string_view value : singleJSONValues()) {
        EXPECT_FALSE(told(value)) << value;
        EXPECT_TRUE(told(arrayOf({value}))) << value;
    }
}

TEST(JSONParserTest, tellsIntegersHoweverTheyAreSpelt) {
    for (const auto integers : {acceptedIntegers(), acceptedLongIntegers()}) {
        for (const auto& [text, value] : integers) {
            EXPECT_EQ(told(arrayOf({text})), arrayOf({std::to_string(value) + ";"})) << text;
        }
    }
}

TEST(JSONParserTest, tellsOtherNumbersAsOtherValues) {
    EXPECT_EQ(told("[1.5,1e-1,9223372036854775808,-9223372036854775809,1e19,18446744073709551615,"
                   "100000000000000000000]"),
              "[.......]");
}

TEST(JSONParserTest, readsPiecesAsOne) {
    const std::string_view text = R"({"key":["a b","c\u00E9\n",-12.50e1,true,null,{"":[7]}]})";
    const auto whole = told(text);
    ASSERT_TRUE(whole);
    for (std::size_t first = 0; first <= text.size(); ++first) {
        for (std::size_t second = first; second <= text.size(); ++second) {
            Notes notes;
            ASSERT_TRUE(parseJSON(
                {text.substr(0, first), text.substr(first, second - first), text.substr(second)},
                notes))
                << first << ' ' << second;
            // Only in what way a text is told depends on where the pieces end.
            std::ranges::replace(notes.text, '<', '"');
            std::ranges::replace(notes.text, '>', '"');
            ASSERT_EQ(notes.text, R"({key=["a b""c)"
                                  "\u00E9\n"
                                  R"("-125;.-{=[7;]}]})");
        }
    }
}

TEST(JSONParserTest, rejectsPiecesThatAreNotOneText) {
    Notes notes;
    EXPECT_FALSE(parseJSON({"{}", "{}"}, notes));
    EXPECT_FALSE(parseJSON({"{}", "x"}, notes));
    EXPECT_FALSE(parseJSON({"[1", "2"}, notes));
    EXPECT_FALSE(parseJSON({"[", ""}, notes));
    EXPECT_FALSE(parseJSON({}, notes));
    EXPECT_TRUE(parseJSON({"[]", "", "\n"}, notes));
}

TEST(JSONParserTest, parses512NestedContainersAndNoMore) {
    EXPECT_TRUE(told(nestedArrays(512)));
    EXPECT_FALSE(told(nestedArrays(513)));
    EXPECT_TRUE(told(nestedObjects(512)));
    EXPECT_FALSE(told(nestedObjects(513)));
    EXPECT_FALSE(told(nestedArrays(1'000'000)));
    for (const std::string& text : endlessJSON()) {
        EXPECT_FALSE(told(text)) << text.substr(0, 5);
    }
}

TEST(JSONParserTest, decodesTextsAndKeys) {
    EXPECT_EQ(told(R"({"k\u0065y\n":"\u0061b\u00E9\uD83D\uDD11\\"})"),
              "{key\n=\"ab\u00E9\U0001F511\\\"}");
    EXPECT_EQ(told(R"(["\u0000"])"), "[\"\0\"]"sv);
    EXPECT_EQ(told("[\"\uFEFFa\"]"), "[<\uFEFFa>]");
}

TEST(JSONParserTest, decodesLongTextsWithEscapesAnywhere) {
    for (const std::size_t length : {1U, 15U, 16U, 255U, 256U, 4095U, 4096U, 4097U, 100000U}) {
        const std::string run(length, 'x');
        EXPECT_EQ(told("[\"" + run + "\\n" + run + "\",\"\\n" + run + "\",\"" + run + "\\n\"]"),
                  "[\"" + run + "\n" + run + "\"\"\n" + run + "\"\"" + run + "\n\"]")
            << length;
    }
}

TEST(JSONParserTest, tellsTheSecondTextWithEscapesWithoutTheFirst) {
    EXPECT_EQ(told(R"(["a\nb","c\td","e",{"f\rg":"h\bi"}])"),
              "[\"a\nb\"\"c\td\"<e>{f\rg=\"h\bi\"}]");
}

TEST(JSONParserTest, wipesTheTextsThatItDecodes) {
    // The pieces of a text with an escape in its middle add up in a buffer of that size.
    const std::string run(5000, 'x');
    Notes notes;
    notes.text.reserve(20000);
    const std::string text = "[\"" + run + "\\n\"]";
    EXPECT_TRUE(givesBackZeros(5000, [&] { EXPECT_TRUE(parseJSON({text}, notes)); }) ||
                givesBackZeros(5001, [&] { EXPECT_TRUE(parseJSON({text}, notes)); }));
}

TEST(JSONParserTest, letsThroughWhatIsThrownByWhoIsTold) {
    class Thrower final : public JSONEvents {
    public:
        void beginObject() override {}

        void endObject() override {}

        void beginArray() override {}

        void endArray() override {}

        void key(std::string_view /*text*/) override {}

        void string(std::string_view /*text*/) override { throw 5; }

        void decodedString(std::string_view /*text*/) override {}

        void integer(std::int64_t /*value*/) override {}

        void null() override {}

        void otherValue() override {}
    };

    Thrower thrower;
    EXPECT_THROW((void)parseJSON({R"(["a"])"}, thrower), int);
}

} // namespace

} // namespace Rellinor::Tests
