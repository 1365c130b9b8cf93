#include "Tests/Support/JSONTexts.hpp"

#include <array>
#include <limits>

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

constexpr std::array accepted = {
    "{}"sv,
    "[]"sv,
    " \t\r\n[ \t\r\n] \t\r\n"sv,
    "[0,-0,-1,1.5,1e3,1E+3,1e-3,-0.0e0]"sv,
    "[9223372036854775807,-9223372036854775808,18446744073709551615]"sv,
    "[100000000000000000000,-100000000000000000000]"sv, // beyond 64 bits
    "[123456789012345678901234567890123456789012345678901234567890.5]"sv,
    "[true,false,null]"sv,
    R"(["",{"":""}])"sv,
    R"({"a":1,"a":2})"sv,
    R"(["\"\\\/\b\f\n\r\t\u0000\uD83D\uDD11"])"sv,
    "[\"\x7F\"]"sv,
    "[\"\uFFFF\U0010FFFF\uFEFF\"]"sv,
};

constexpr std::array single = {
    "3"sv, "1.5"sv, "\"a\""sv, R"("\u0061")"sv, "null"sv, "true"sv, "false"sv,
};

constexpr std::array rejected = {
    ""sv,
    " "sv,
    "\uFEFF"sv,
    "{}\uFEFF"sv,
    "[01]"sv,
    "[+1]"sv,
    "[.5]"sv,
    "[1.]"sv,
    "[1e]"sv,
    "[-]"sv,
    "[0x1]"sv,
    "[NaN]"sv,
    "[Infinity]"sv,
    "[-Infinity]"sv,
    "[True]"sv,
    "[nul]"sv,
    "{} x"sv,
    "{}{}"sv,
    "{}\0"sv,
    "[1,]"sv,
    "[,1]"sv,
    "[1 2]"sv,
    R"({"a":1,})"sv,
    R"({"a"})"sv,
    R"({"a":})"sv,
    R"({a:1})"sv,
    R"({1:1})"sv,
    R"({'a':1})"sv,
    "[1]// comment"sv,
    "/* comment */[1]"sv,
    "[1"sv,
    "]"sv,
    "[}"sv,
    "[\"a]"sv,
    "\v[]"sv,
    "\u00A0[]"sv,
    "[\"\0\"]"sv, // raw control characters
    "[\"\n\"]"sv,
    "[\"\x1F\"]"sv,
    R"(["\x"])"sv,
    R"(["\u12"])"sv,
    R"(["\u12G4"])"sv,
    R"(["\uD800"])"sv, // surrogates alone
    R"(["\uDC00"])"sv,
    R"(["\uD800\u0061"])"sv,
    R"(["\uD800\uD800"])"sv,
    "[\"\xFF\"]"sv, // not UTF-8
    "[\"\x80\"]"sv,
    "[\"\xC3\"]"sv,
    "[\"\xC0\x80\"]"sv,
    "[\"\xE0\x80\x80\"]"sv,
    "[\"\xED\xA0\x80\"]"sv,
    "[\"\xF0\x80\x80\x80\"]"sv,
    "[\"\xF4\x90\x80\x80\"]"sv,
    "{\"\xFF\":1}"sv,
    "\xFF\xFE[\0]\0"sv,
    "[\0]\0"sv,
};

using Limits = std::numeric_limits<std::int64_t>;

constexpr std::array integers = {
    JSONInteger{"0", 0},
    JSONInteger{"-0", 0},
    JSONInteger{"1", 1},
    JSONInteger{"-1", -1},
    JSONInteger{"1.0", 1},
    JSONInteger{"1e3", 1000},
    JSONInteger{"1E+3", 1000},
    JSONInteger{"10e-1", 1},
    JSONInteger{"2500e-2", 25},
    JSONInteger{"-5.0", -5},
    JSONInteger{"0e5", 0},
    JSONInteger{"0.00", 0},
    JSONInteger{"-0.0", 0},
    JSONInteger{"9007199254740993", 9007199254740993}, // 2 to the 53rd, and 1
    JSONInteger{"9223372036854775807", Limits::max()},
    JSONInteger{"-9223372036854775808", Limits::min()},
};

constexpr std::array longIntegers = {
    JSONInteger{"9007199254740993.0", 9007199254740993},
    JSONInteger{"9223372036854775807.0", Limits::max()},
    JSONInteger{"922337203685477580.7e1", Limits::max()},
    JSONInteger{"9223372036854775807000e-3", Limits::max()},
    JSONInteger{"123456789012345678e1", 1234567890123456780},
    JSONInteger{"-12345678901234567.89e2", -1234567890123456789},
    JSONInteger{"-9223372036854775808e0", Limits::min()},
};

constexpr std::array noIntegers = {
    "1.5"sv,
    "1e-1"sv,
    "-0.5"sv,
    "9223372036854775808"sv,
    "-9223372036854775809"sv,
    "18446744073709551615"sv,
    "100000000000000000000"sv,
    "1e19"sv,
    "1e300"sv,
    "true"sv,
    "false"sv,
    R"("5")"sv,
    R"("")"sv,
    "[]"sv,
    "[5]"sv,
    "{}"sv,
};

constexpr std::array noStrings = {
    "0"sv,           "1"sv,     "1.5"sv,
    "true"sv,        "false"sv, "[]"sv,
    R"(["text"])"sv, "{}"sv,    R"({"a":"text"})"sv,
};

std::string repeated(std::string_view text, std::size_t count) {
    std::string whole;
    for (; count > 0; --count) {
        whole += text;
    }
    return whole;
}

} // namespace

std::span<const std::string_view> acceptedJSON() {
    return accepted;
}

std::span<const std::string_view> singleJSONValues() {
    return single;
}

std::span<const std::string_view> rejectedJSON() {
    return rejected;
}

std::string arrayOf(std::initializer_list<std::string_view> values) {
    std::string text = "[";
    for (const std::string_view value : values) {
        text += text.size() == 1 ? "" : ",";
        text += value;
    }
    return text + "]";
}

std::string nestedArrays(std::size_t depth) {
    return repeated("[", depth) + repeated("]", depth);
}

std::string nestedObjects(std::size_t depth) {
    return repeated(R"({"a":)", depth) + "1" + repeated("}", depth);
}

std::vector<std::string> endlessJSON() {
    return {repeated("[", 10'000'000), repeated(R"({"a":)", 2'000'000)};
}

std::span<const JSONInteger> acceptedIntegers() {
    return integers;
}

std::span<const JSONInteger> acceptedLongIntegers() {
    return longIntegers;
}

std::span<const std::string_view> rejectedIntegers() {
    return noIntegers;
}

std::span<const std::string_view> rejectedStrings() {
    return noStrings;
}

} // namespace Rellinor::Tests
