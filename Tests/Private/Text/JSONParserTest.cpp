#include "Private/Text/JSONParser.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <boost/json/error.hpp>
#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/RandomText.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

/// Writes down what it is told.
class Notes {
public:
    void beginObject() { text += '{'; }

    void endObject() { text += '}'; }

    void beginArray() { text += '['; }

    void endArray() { text += ']'; }

    void key(JSONString key) { text += decoded(key) + '='; }

    void string(JSONString string) {
        const bool isDecoded = string.hasEscapes();
        text += (isDecoded ? '"' : '<') + decoded(string) + (isDecoded ? '"' : '>');
    }

    void integer(std::int64_t value) { text += std::to_string(value) + ';'; }

    void null() { text += '-'; }

    void boolean(bool value) { text += value ? '+' : '!'; }

    void otherNumber() { text += '.'; }

    std::string text;

private:
    static std::string decoded(JSONString string) {
        std::string target(string.written().size(), '?');
        target.resize(string.decoded(target).size());
        return target;
    }
};

/// What is told of a text; absent if it is rejected.
std::optional<std::string> told(std::string_view text) {
    // Exactly as large as the text, so that a sanitizer sees a single byte read behind it.
    const auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::ranges::copy(text, copy.get());
    Notes notes;
    const std::string_view exact(copy.get(), text.size());
    return JSONParser(exact, notes).parse() ? std::optional(notes.text) : std::nullopt;
}

TEST(JSONParserTest, tellsThePartsInTheirOrder) {
    EXPECT_EQ(told(R"({"a":[1,"b",{}],"c":{"d":null},"e":true,"f":false,"g":1.5})"),
              "{a=[1;<b>{}]c={d=-}e=+f=!g=.}");
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

TEST(JSONParserTest, rejectsWhatIsCutShortAnywhere) {
    const std::string_view text = R"({"key":["a b","c\u00E9\n",-12.50e1,true,null,{"":[7]}]})";
    ASSERT_TRUE(told(text));
    for (std::size_t size = 0; size < text.size(); ++size) {
        EXPECT_FALSE(told(text.substr(0, size))) << size;
    }
}

TEST(JSONParserTest, rejectsSomethingBehindTheText) {
    for (const std::string_view behind : {"{}", "x", ",", "]", "}", "\"", "1"}) {
        EXPECT_FALSE(told("[]" + std::string(behind))) << behind;
        EXPECT_FALSE(told("{} " + std::string(behind))) << behind;
    }
    EXPECT_TRUE(told("[] \r\n\t"));
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

TEST(JSONParserTest, acceptsWhatBoostJSONAccepts) {
    static constexpr std::array<std::string_view, 32> pieces = {
        "{",      "}",    "[",     "]",   ",",       ":",       "\"",     "\"a\"",
        "\"a\":", "\\",   "\\u00", "\\n", "\\uD83D", "\\uDD11", "\u00E9", "\xC3",
        "null",   "true", "false", "-",   "0",       "12",      ".",      "e",
        "E+3",    "1.5",  " ",     "\n",  "\t",      "\x01",    "x",      "\"\"",
    };
    boost::json::parse_options options;
    options.max_depth = 512;
    RandomText random(3);
    std::size_t accepted = 0;
    for (int round = 0; round < affordable(200'000); ++round) {
        // Mostly what is nearly right.
        const std::string inner = random.of(pieces, 6);
        const std::string text = random.below(2) == 0 ? "[" + inner + "]" : "{\"k\":" + inner + "}";
        boost::json::error_code error;
        (void)boost::json::parse(text, error, {}, options);
        ASSERT_EQ(told(text).has_value(), !error) << text;
        accepted += error ? 0U : 1U;
    }
    EXPECT_GT(accepted, affordable(5'000U));
}

TEST(JSONParserTest, letsThroughWhatIsThrownByWhoIsTold) {
    class Thrower {
    public:
        void beginObject() {}

        void endObject() {}

        void beginArray() {}

        void endArray() {}

        void key(JSONString /*text*/) {}

        void string(JSONString /*text*/) { throw 5; }

        void integer(std::int64_t /*value*/) {}

        void null() {}

        void boolean(bool /*value*/) {}

        void otherNumber() {}
    };

    Thrower thrower;
    EXPECT_THROW((void)JSONParser(R"(["a"])"sv, thrower).parse(), int);
}

} // namespace

} // namespace Rellinor::Tests
