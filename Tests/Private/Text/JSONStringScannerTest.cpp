#include "Private/Text/JSONStringScanner.hpp"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/RandomText.hpp"

namespace Rellinor::Tests {

namespace {

/// The same, one byte at a time.
std::size_t nextOneByOne(std::string_view text, std::size_t from) {
    while (from < text.size()) {
        const auto byte = static_cast<unsigned char>(text[from]);
        if (byte == '"' || byte == '\\' || byte < 0x20) {
            break;
        }
        ++from;
    }
    return from;
}

/// Exactly as large as a text, so that a sanitizer sees a single byte read behind it.
class Exact {
public:
    explicit Exact(std::string_view text)
        : _bytes(std::make_unique_for_overwrite<char[]>(text.size())), _size(text.size()) {
        std::ranges::copy(text, _bytes.get());
    }

    [[nodiscard]] std::string_view view() const { return {_bytes.get(), _size}; }

private:
    std::unique_ptr<char[]> _bytes;
    std::size_t _size;
};

TEST(JSONStringScannerTest, findsEveryByteThatMayNotStandInAStringAndNoOther) {
    for (int value = 0; value < 256; ++value) {
        const std::string text = "ab" + std::string(1, static_cast<char>(value)) + "cd";
        EXPECT_EQ(JSONStringScanner(text).next(0), nextOneByOne(text, 0)) << value;
    }
}

TEST(JSONStringScannerTest, findsAQuoteAtEveryPlaceFromEveryPlace) {
    for (std::size_t size = 0; size <= 200; ++size) {
        for (std::size_t place = 0; place < size; place += 7) {
            std::string text(size, 'x');
            text[place] = '"';
            const Exact exact(text);
            for (std::size_t from = 0; from <= size; ++from) {
                ASSERT_EQ(JSONStringScanner(exact.view()).next(from), nextOneByOne(text, from))
                    << size << ' ' << place << ' ' << from;
            }
        }
    }
}

TEST(JSONStringScannerTest, goesOnFromWhereItIsAsked) {
    RandomText random(11);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (std::size_t length = random.below(400); length > 0; --length) {
            text += std::string_view("\"\\\x1F \x80xyzabcdefg", 15)[random.below(15)];
        }
        const Exact exact(text);
        JSONStringScanner scanner(exact.view());
        for (std::size_t from = 0; from <= text.size(); from += 1 + random.below(30)) {
            const std::size_t found = scanner.next(from);
            ASSERT_EQ(found, nextOneByOne(text, from));
            from = found;
        }
    }
}

TEST(JSONStringScannerTest, missesNoByteBeyondASCII) {
    for (std::size_t size = 1; size <= 200; ++size) {
        for (std::size_t place = 0; place < size; place += 3) {
            std::string text(size, 'x');
            text[place] = '\xC3';
            text += '"';
            for (std::size_t from = 0; from <= place; from += 5) {
                JSONStringScanner scanner(text);
                ASSERT_EQ(scanner.next(from), size);
                ASSERT_TRUE(scanner.mayHaveNonASCIIBehind(from)) << size << ' ' << place;
            }
        }
    }
}

TEST(JSONStringScannerTest, tellsThatATextIsASCII) {
    const std::string text(200, 'x');
    JSONStringScanner scanner(text);
    EXPECT_EQ(scanner.next(0), text.size());
    EXPECT_FALSE(scanner.mayHaveNonASCIIBehind(0));
}

} // namespace

} // namespace Rellinor::Tests
