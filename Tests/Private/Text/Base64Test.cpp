#include "Private/Text/Base64.hpp"

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sodium/utils.h>

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

std::string encoded(std::string_view bytes) {
    // In buffers of exactly their size, so that a sanitizer sees a byte too many.
    const std::vector<char> source(bytes.begin(), bytes.end());
    std::vector<char> target(sizeOfBase64(bytes.size()));
    writeBase64(source, target);
    return {target.begin(), target.end()};
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

TEST(Base64Test, encodesRandomBytesAsAnotherLibraryDoes) {
    std::mt19937 random(1);
    for (std::size_t length = 0; length < 300; ++length) {
        std::string bytes(length, '\0');
        std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
        std::vector<char> expected(
            ::sodium_base64_encoded_len(length, sodium_base64_VARIANT_ORIGINAL));
        const auto* data = reinterpret_cast<const unsigned char*>(bytes.data()); // NOLINT(*-cast)
        ::sodium_bin2base64(expected.data(), expected.size(), data, length,
                            sodium_base64_VARIANT_ORIGINAL);
        ASSERT_EQ(encoded(bytes), expected.data());
    }
}

} // namespace

} // namespace Rellinor::Tests
