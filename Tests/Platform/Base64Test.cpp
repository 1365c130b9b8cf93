#include "Platform/Base64.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

std::string encoded(std::string_view bytes) {
    std::string buffer(sizeOfBase64Buffer(bytes.size()), '?');
    return std::string(base64(bytes, buffer));
}

TEST(Base64Test, encodesBytesAndPadsTheText) {
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("f"), "Zg==");
    EXPECT_EQ(encoded("fo"), "Zm8=");
    EXPECT_EQ(encoded("foo"), "Zm9v");
    EXPECT_EQ(encoded("foob"), "Zm9vYg==");
    EXPECT_EQ(encoded("fooba"), "Zm9vYmE=");
    EXPECT_EQ(encoded("foobar"), "Zm9vYmFy");
}

TEST(Base64Test, usesTheStandardAlphabet) {
    EXPECT_EQ(encoded("\x00\x10\x83\x10\x51\x87\x20\x92\x8B\x30\xD3\x8F\x41\x14\x93\x51\x55\x97\x61"
                      "\x96\x9B\x71\xD7\x9F\x82\x18\xA3\x92\x59\xA7\xA2\x9A\xAB\xB2\xDB\xAF\xC3\x1C"
                      "\xB3\xD3\x5D\xB7\xE3\x9E\xBB\xF3\xDF\xBF"sv),
              "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
}

TEST(Base64Test, breaksNoLines) {
    EXPECT_EQ(encoded(std::string(300, '\0')), std::string(400, 'A'));
}

} // namespace

} // namespace Rellinor::Tests
