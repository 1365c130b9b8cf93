// Functions of texts alone, over random texts, against references that are slow and literal.

#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Platform/File.hpp"
#include "Platform/URL.hpp"
#include "Platform/URLHost.hpp"
#include "Private/Text/JSONNumber.hpp"
#include "Private/Text/UTF8.hpp"
#include "Tests/Reference/JSONReference.hpp"
#include "Tests/Reference/TextReference.hpp"
#include "Tests/Reference/URLReference.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

TEST(PropertiesTest, aNumberHasTheValueOfItsDigits) {
    constexpr std::array pieces = {
        "0"sv, "00000"sv, "1"sv,  "5"sv,  "9"sv,  "9223372036854775807"sv,
        "."sv, ".0"sv,    "e"sv,  "E+"sv, "e-"sv, "18"sv,
        "-"sv, "8"sv,     "10"sv, "3"sv};
    RandomText random(1);
    std::size_t numbers = 0;
    std::size_t integers = 0;
    for (std::size_t round = 0; round < affordable(200'000UZ); ++round) {
        const std::string text = random.of(pieces, 6);
        if (isReferenceNumber(text)) {
            ASSERT_EQ(integralValue(text), referenceInteger(text)) << text;
            ++numbers;
            integers += integralValue(text) ? 1U : 0U;
        }
    }
    EXPECT_GT(numbers, affordable(10'000UZ));
    EXPECT_GT(integers, affordable(5'000UZ));
    EXPECT_GT(numbers - integers, affordable(500UZ));
}

TEST(PropertiesTest, aTextIsWhatUnicodeSaysOfItsBytes) {
    constexpr std::array pieces = {
        "a"sv,          "\u00e9"sv,       "e\u0301"sv,    "\U0001F468"sv,
        "\u200d"sv,     "\ufeff"sv,       "\U0001F1E9"sv, "\U0001F1EA"sv,
        "\U0001F3FD"sv, "\u1100"sv,       "\u1161"sv,     "\uac00"sv,
        "\u11a8"sv,     "\u0600"sv,       "\u0903"sv,     "\u3000"sv,
        " "sv,          "\t"sv,           "\r"sv,         "\n"sv,
        "\0"sv,         "\ufe0f"sv,       "\u093c"sv,     "\xff"sv,
        "\xe2\x82"sv,   "\xf0\x9f\x94"sv, "\xc0\x80"sv,   "\xed\xa0\x80"sv,
        "\x80"sv,       "abcdefgh"sv};
    RandomText random(2);
    std::size_t valid = 0;
    for (std::size_t round = 0; round < affordable(50'000UZ); ++round) {
        const std::string text = random.of(pieces, 12);
        const auto codePoints = referenceCodePoints(text);
        ASSERT_EQ(isUTF8(text), codePoints.has_value()) << testing::PrintToString(text);

        std::vector<char> bytes(text.begin(), text.end());
        const auto decoded = decodedText(bytes);
        const auto expected = referenceDecodedText(text);
        ASSERT_EQ(decoded.has_value(), expected.has_value()) << testing::PrintToString(text);
        if (decoded) {
            ASSERT_EQ(std::string(decoded->begin(), decoded->end()), *expected);
        }
        std::vector<char> repaired(sizeOfRepairedText(text));
        writeRepairedText(text, repaired);
        ASSERT_EQ(std::string(repaired.begin(), repaired.end()), referenceRepairedText(text));
        if (codePoints) {
            ASSERT_EQ(numberOfCharacters(text), referenceNumberOfCharacters(*codePoints))
                << testing::PrintToString(text);
            ASSERT_EQ(numberOfUTF16Units(text), referenceUTF16(*codePoints).size());
            ASSERT_EQ(isBlank(text), referenceIsBlank(*codePoints)) << testing::PrintToString(text);
            ++valid;
        } else {
            ASSERT_LE(numberOfCharacters(text), text.size());
        }
    }
    EXPECT_GT(valid, affordable(10'000UZ));
}

TEST(PropertiesTest, aURLHasTheHostOfItsGrammar) {
    constexpr std::array pieces = {"http:"sv, "//"sv,     "/"sv,      "sn"sv, "SN"sv,      "a"sv,
                                   "sn-1"sv,  "%73"sv,    "@"sv,      ":"sv,  "80"sv,      "?q"sv,
                                   "#f"sv,    "[::1]"sv,  "[v1.a]"sv, "."sv,  "1.2.3.4"sv, " "sv,
                                   "%"sv,     "\u00e9"sv, "\\"sv};
    RandomText random(3);
    std::size_t found = 0;
    for (std::size_t round = 0; round < affordable(50'000UZ); ++round) {
        const std::string text = (random.below(4) == 0 ? "" : "http://") + random.of(pieces, 5);
        const auto host = referenceHost(text);
        for (const std::string_view wanted : {"sn"sv, "a"sv, "sn-1"sv}) {
            ASSERT_EQ(hasHost(text, wanted), host == wanted) << text;
            found += host == wanted ? 1U : 0U;
        }
    }
    EXPECT_GT(found, affordable(1'000UZ));
}

std::string withoutSlashesAtTheEnd(std::string path) {
    while (path.size() > 1 && path.back() == '/') {
        path.pop_back();
    }
    return path;
}

/// The name of a file as a person may choose it, without or with folders.
std::string randomName(RandomText& random, bool hasFolders) {
    constexpr std::array pieces = {"/"sv, "a"sv, ".."sv,     "."sv,  " "sv,    ";"sv,  "%41"sv,
                                   "?"sv, "#"sv, "\u00e9"sv, "\n"sv, "\xff"sv, "\\"sv, "~"sv};
    std::string name = random.of(pieces, 6);
    if (!hasFolders) {
        std::erase(name, '/');
    }
    return name;
}

TEST(PropertiesTest, aPathIsEncodedByteByByte) {
    const std::string currentFolder = std::filesystem::current_path().string() + '/';
    RandomText random(4);
    for (std::size_t round = 0; round < affordable(20'000UZ); ++round) {
        const std::string input = randomName(random, true);
        const std::string path = (input.starts_with('/') ? "" : currentFolder) + input;
        const URL url = URL::fileURLWithPath(input);
        ASSERT_EQ(url.path(), withoutSlashesAtTheEnd(path));
        ASSERT_EQ(url.absoluteString(), referenceFileURL(path));

        const bool isParted = path.back() == '/' || input.starts_with('/');
        ASSERT_EQ(url.appendingPathComponent(input).absoluteString(),
                  referenceFileURL(path + (isParted ? "" : "/") + input));
        const std::string stem = withoutSlashesAtTheEnd(path);
        ASSERT_EQ(url.appendingPathExtension("json").absoluteString(),
                  referenceFileURL(stem + ".json" + path.substr(stem.size())));
    }
}

TEST(PropertiesTest, aFileIsReadByAnyNameItMayHave) {
    const TemporaryFolder folder;
    const URL base = URL::fileURLWithPath(folder.path().native());
    RandomText random(5);
    std::size_t files = 0;
    for (std::size_t round = 0; round < affordable(2'000UZ); ++round) {
        const std::string name = randomName(random, false);
        const std::string path(base.appendingPathComponent(name).path());
        const bool isFolder = name.empty() || name == "." || name == "..";
        if (!isFolder) {
            std::ofstream(path) << "contents";
            ++files;
        }
        auto read = readFile(path);
        ASSERT_EQ(read.has_value(), !isFolder) << testing::PrintToString(name);
        if (read) {
            ASSERT_EQ(std::string_view(read->bytes().data(), read->bytes().size()), "contents");
            ASSERT_TRUE(std::filesystem::remove(path));
        }
        ASSERT_EQ(isReadableFile(path), isFolder) << testing::PrintToString(name);
    }
    EXPECT_GT(files, affordable(1'000UZ));
}

} // namespace

} // namespace Rellinor::Tests
