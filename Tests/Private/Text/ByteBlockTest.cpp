#include "Private/Text/ByteBlock.hpp"

#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/RandomText.hpp"

namespace Rellinor::Tests {

namespace {

template <typename Block>
class ByteBlockTest : public testing::Test {};

using Blocks = testing::Types<PortableByteBlock, ByteBlock>;
TYPED_TEST_SUITE(ByteBlockTest, Blocks);

std::uint64_t bitsOneByOne(const std::string& bytes, char character) {
    std::uint64_t bits = 0;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        bits |= std::uint64_t{bytes[index] == character} << index;
    }
    return bits;
}

TYPED_TEST(ByteBlockTest, findsEveryByteValueAtEveryPlace) {
    for (int value = 0; value < 256; ++value) {
        const char character = static_cast<char>(value);
        for (std::size_t place = 0; place < 64; ++place) {
            std::string bytes(64, static_cast<char>(value + 1));
            bytes[place] = character;
            EXPECT_EQ(TypeParam(std::span(bytes).template first<64>()).equalTo(character),
                      std::uint64_t{1} << place)
                << "byte " << value << " at " << place;
        }
    }
}

TYPED_TEST(ByteBlockTest, agreesWithALoopOverRandomBytes) {
    RandomText random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(64, '\0');
        for (char& byte : bytes) {
            // Few values, among them neighbours and such as differ in the high bit alone.
            byte = std::string_view("\"#!\xA2,\n\0\xFF", 8)[random.below(8)];
        }
        for (const char character : {'"', ',', '\n', '\0', '\xA2'}) {
            EXPECT_EQ(TypeParam(std::span(bytes).template first<64>()).equalTo(character),
                      bitsOneByOne(bytes, character));
        }
        EXPECT_EQ(TypeParam::first(bytes).equalTo('"', '\n'),
                  bitsOneByOne(bytes, '"') | bitsOneByOne(bytes, '\n'));
        EXPECT_EQ(TypeParam::first(bytes).equalToOrBelow('"', ',', ' '),
                  bitsOneByOne(bytes, '"') | bitsOneByOne(bytes, ',') | bitsOneByOne(bytes, '\n') |
                      bitsOneByOne(bytes, '\0'));
    }
}

TYPED_TEST(ByteBlockTest, tellsEveryByteBelowALimit) {
    for (int value = 0; value < 256; ++value) {
        const std::string bytes(64, static_cast<char>(value));
        EXPECT_EQ(TypeParam::first(bytes).equalToOrBelow('"', '\\', ' ') != 0,
                  value < 0x20 || value == '"' || value == '\\')
            << value;
    }
}

TYPED_TEST(ByteBlockTest, tellsOneByteBeyondASCIIAtEveryPlace) {
    EXPECT_TRUE(TypeParam::first(std::string(64, '\x7F')).isASCII());
    for (std::size_t place = 0; place < 64; ++place) {
        std::string bytes(64, '\0');
        bytes[place] = '\x80';
        EXPECT_FALSE(TypeParam::first(bytes).isASCII()) << place;
    }
}

TYPED_TEST(ByteBlockTest, looksAtTheBeginningOfALongText) {
    const std::string text = std::string(64, 'x') + std::string(100'000, 'y');
    EXPECT_EQ(TypeParam::first(text).equalTo('x'), ~std::uint64_t{0});
}

TYPED_TEST(ByteBlockTest, fillsUpAShortTextWithSpaces) {
    const std::string x(5, 'x');
    EXPECT_EQ(TypeParam::first(x).equalTo('x'), 0x1FU);
    EXPECT_EQ(TypeParam::first(x).equalTo(' '), ~std::uint64_t{0x1F});
    EXPECT_EQ(TypeParam::first("").equalTo(' '), ~std::uint64_t{0});
}

} // namespace

} // namespace Rellinor::Tests
