#include "Private/Text/JSONWriter.hpp"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Platform/Unicode.hpp"
#include "Private/Text/UTF8.hpp"
#include "Tests/Support/Allocations.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

/// What is written of a text, without its quotes.
std::string written(std::string_view text) {
    JSONWriter json;
    json.string(text);
    const std::string_view quoted = json.written();
    EXPECT_EQ(quoted.front(), '"');
    EXPECT_EQ(quoted.back(), '"');
    return std::string(quoted.substr(1, quoted.size() - 2));
}

TEST(JSONWriterTest, separatesWhatFollowsSomething) {
    JSONWriter json;
    json.beginObject();
    json.key("a");
    json.beginArray();
    json.endArray();
    json.key("b");
    json.beginArray();
    json.integer(1);
    json.string("x");
    json.beginObject();
    json.endObject();
    json.beginObject();
    json.key("");
    json.integer(2);
    json.endObject();
    json.integer(3);
    json.endArray();
    json.key("c\"");
    json.string("");
    json.endObject();
    EXPECT_EQ(json.written(), R"({"a":[],"b":[1,"x",{},{"":2},3],"c\"":""})");
}

TEST(JSONWriterTest, writesEveryIntegerOf64Bits) {
    using Limits = std::numeric_limits<std::int64_t>;
    JSONWriter json;
    json.beginArray();
    for (const std::int64_t integer : {Limits::min(), std::int64_t{0}, Limits::max()}) {
        json.integer(integer);
    }
    EXPECT_EQ(json.written(), "[-9223372036854775808,0,9223372036854775807");
}

TEST(JSONWriterTest, writesEscapes) {
    EXPECT_EQ(written("\"\\/\b\f\n\r\t"), R"(\"\\/\b\f\n\r\t)");
    EXPECT_EQ(written("a\0b\x1F\x7F"sv), R"(a\u0000b\u001f\u007f)");
    EXPECT_EQ(written("\u009B1m\u2028\u202E|"), R"(\u009b1m\u2028\u202e|)");
}

TEST(JSONWriterTest, escapesNothingElse) {
    std::vector<std::int32_t> bounds; // where escaped ones begin and end
    for (std::int32_t codePoint = 0; codePoint <= 0x110000; ++codePoint) {
        std::array<char, 4> bytes{};
        const std::string_view text(bytes.begin(), writeCodePoint(codePoint, bytes.begin()));
        const bool isEscaped = isUTF8(text) && written(text) != text;
        const bool wasEscaped = bounds.size() % 2 == 1;
        if (isEscaped != wasEscaped) {
            bounds.push_back(codePoint);
        }
    }
    EXPECT_EQ(bounds,
              (std::vector<std::int32_t>{0, 0x20, '"', '"' + 1, '\\', '\\' + 1, 0x7F, 0xA0, 0x61C,
                                         0x61D, 0x200E, 0x2010, 0x2028, 0x202F, 0x2066, 0x206A}));
}

TEST(JSONWriterTest, repairsWhatIsNotUTF8) {
    EXPECT_EQ(written("a\xFF\"\xE6\xBC|\xED\xA0\x80"), "a\uFFFD\\\"\uFFFD|\uFFFD\uFFFD\uFFFD");
}

TEST(JSONWriterTest, writesTextsOfAnySize) {
    for (const std::size_t size : {4000U, 4094U, 4095U, 10000U}) {
        const std::string text(size, 'x');
        JSONWriter json;
        json.beginArray();
        json.string(text);
        json.string(text);
        EXPECT_EQ(json.written(), "[\"" + text + "\",\"" + text + '"');
    }
}

TEST(JSONWriterTest, wipesWhatIsWritten) {
    constexpr std::size_t smallestBuffer = 4096;
    EXPECT_TRUE(givesBackZeros(smallestBuffer, [] { (void)written("secret"); }));
    EXPECT_TRUE(givesBackZeros(smallestBuffer, [] {
        JSONWriter json;
        json.string("secret");
        json.string(std::string(smallestBuffer, 'x')); // which asks for another
    }));
}

} // namespace

} // namespace Rellinor::Tests
